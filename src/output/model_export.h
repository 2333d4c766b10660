#pragma once

#include <array>
#include <string>
#include <vector>

#include "model/gem_model.h"

namespace kirameki {

// A stone as the model files carry it: each position once, faces wound counter-clockwise
// seen from outside, with their outward unit normals. Coordinates are the model's (girdle
// radius 1, Y the stone's axis, crown toward +Y).
struct ExportMesh {
    std::vector<Vec3> vertices;
    std::vector<std::vector<int>> faces;
    std::vector<Vec3> normals;  // one a face
};

// The model with coinciding vertices welded (the builders repeat the poles of the round
// solids), corners that collapse into one dropped and faces left with fewer than three
// corners dropped.
ExportMesh WeldedMesh(const GemModel& model);

// The faces as triangles (fans: every face is convex), wound as the faces are.
std::vector<std::array<int, 3>> Triangles(const ExportMesh& mesh);

// The stone's look: material name, refractive index, dispersion coefficient and the colour's
// absorption per 1/25 of the girdle radius (as the tracer takes them).
struct StoneLook {
    std::string name;
    double refractiveIndex = 1.5;
    double dispersion = 0.0;
    std::array<double, 3> absorption{};
};

// The fraction of red, green and blue light that passes through the stone over the given
// distance in girdle radii.
std::array<double, 3> Transmittance(const StoneLook& look, double radii);

// The largest width of the stone across its girdle (the larger of its X and Z extents), in
// model units.
double GirdleWidth(const ExportMesh& mesh);

// Wavefront OBJ: object `name`, welded vertices, one normal a face, and beside it a material
// file (the OBJ's stem + ".mtl") with the stone's colour and refractive index; to standard
// output ("-") the OBJ goes without material. Each file is written whole or not at all; on
// failure error holds one line.
bool WriteObjModel(const std::string& path, const ExportMesh& mesh, const std::string& name,
                   const StoneLook& look, std::string& error);

// Binary STL for 3D printing: millimetres, scaled so that the girdle is girdleMillimetres
// wide, Z up, triangles wound counter-clockwise seen from outside.
bool WriteStlModel(const std::string& path, const ExportMesh& mesh, const std::string& name,
                   double girdleMillimetres, std::string& error);

// Binary glTF 2.0 (.glb) in metres, Y up, girdle girdleMillimetres wide, flat-shaded, with a
// transmissive material carrying the stone's optics (KHR_materials_ior, _transmission,
// _volume, _dispersion).
bool WriteGlbModel(const std::string& path, const ExportMesh& mesh, const std::string& name,
                   const StoneLook& look, double girdleMillimetres, std::string& error);

}  // namespace kirameki
