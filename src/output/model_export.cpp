#include "output/model_export.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <limits>

#include "output/atomic_file.h"

namespace kirameki {

namespace {

// Corners closer than this (in girdle radii) are one point: far below any facet of a cut,
// far above the rounding of the generators' trigonometry.
constexpr double kWeldDistance = 1e-7;

// The outward normal of a face wound counter-clockwise seen from outside (Newell's method,
// which also holds for faces that are not quite planar).
Vec3 OutwardNormal(const std::vector<Vec3>& vertices, const std::vector<int>& face) {
    Vec3 sum;
    for (std::size_t i = 0; i < face.size(); ++i) {
        const Vec3 a = vertices[std::size_t(face[i])];
        const Vec3 b = vertices[std::size_t(face[(i + 1) % face.size()])];
        sum = sum +
              Vec3{(a.y - b.y) * (a.z + b.z), (a.z - b.z) * (a.x + b.x), (a.x - b.x) * (a.y + b.y)};
    }
    const double length = Length(sum);
    return length > 0.0 ? sum * (1.0 / length) : Vec3{};
}

// Little-endian numbers into a byte string.
void PutU32(std::string& out, std::uint32_t value) {
    for (int shift = 0; shift < 32; shift += 8)
        out += char((value >> shift) & 0xff);
}
void PutF32(std::string& out, double value) {
    const float f = float(value);
    std::uint32_t bits = 0;
    std::memcpy(&bits, &f, sizeof bits);
    PutU32(out, bits);
}

std::string Number(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%.9g", value);
    return text;
}

bool WriteBytes(const std::string& path, const std::string& bytes, std::string& error) {
    return WriteFileAtomically(
        path,
        [&](std::FILE* file) {
            return std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
        },
        error);
}

// Names in OBJ and MTL files end at white space.
std::string Word(const std::string& name) {
    std::string word = name.empty() ? std::string("stone") : name;
    for (char& c : word)
        if (c == ' ' || c == '\t' || c == '\n' || c == '\r')
            c = '_';
    return word;
}

// The scale from model units to millimetres for a girdle of the width asked for.
double MillimetreScale(const ExportMesh& mesh, double girdleMillimetres) {
    const double width = GirdleWidth(mesh);
    return width > 0.0 ? girdleMillimetres / width : 1.0;
}

}  // namespace

ExportMesh WeldedMesh(const GemModel& model) {
    ExportMesh mesh;
    if (!IsWellFormed(model))
        return mesh;
    std::vector<int> welded(std::size_t(model.VertexCount));
    for (int i = 0; i < model.VertexCount; ++i) {
        const Vec3 v = model.ModelVertices[std::size_t(i)];
        int found = -1;
        for (std::size_t j = 0; j < mesh.vertices.size() && found < 0; ++j)
            if (Length(mesh.vertices[j] - v) < kWeldDistance)
                found = int(j);
        if (found < 0) {
            found = int(mesh.vertices.size());
            mesh.vertices.push_back(v);
        }
        welded[std::size_t(i)] = found;
    }
    for (int f = 0; f < model.FaceCount; ++f) {
        const FaceRecord& record = model.FaceTable[std::size_t(f)];
        // The model winds its faces clockwise seen from outside: the corners reversed.
        std::vector<int> face;
        for (int j = record.Count - 1; j >= 0; --j) {
            const int index = welded[std::size_t(record.Index[std::size_t(j)])];
            if (face.empty() || face.back() != index)
                face.push_back(index);
        }
        while (face.size() > 1 && face.front() == face.back())
            face.pop_back();
        if (face.size() < 3)
            continue;
        mesh.normals.push_back(OutwardNormal(mesh.vertices, face));
        mesh.faces.push_back(std::move(face));
    }
    // Vertices no face uses any more are left out, the rest keep their order.
    std::vector<int> used(mesh.vertices.size(), -1);
    for (const auto& face : mesh.faces)
        for (const int index : face)
            used[std::size_t(index)] = 0;
    std::vector<Vec3> kept;
    for (std::size_t i = 0; i < used.size(); ++i)
        if (used[i] == 0) {
            used[i] = int(kept.size());
            kept.push_back(mesh.vertices[i]);
        }
    for (auto& face : mesh.faces)
        for (int& index : face)
            index = used[std::size_t(index)];
    mesh.vertices = std::move(kept);
    return mesh;
}

std::vector<std::array<int, 3>> Triangles(const ExportMesh& mesh) {
    std::vector<std::array<int, 3>> triangles;
    for (const auto& face : mesh.faces)
        for (std::size_t j = 1; j + 1 < face.size(); ++j)
            triangles.push_back({face[0], face[j], face[j + 1]});
    return triangles;
}

std::array<double, 3> Transmittance(const StoneLook& look, double radii) {
    std::array<double, 3> passed{};
    for (std::size_t c = 0; c < 3; ++c)
        passed[c] = std::exp(-look.absorption[c] * 25.0 * radii);
    return passed;
}

double GirdleWidth(const ExportMesh& mesh) {
    if (mesh.vertices.empty())
        return 0.0;
    double lowX = std::numeric_limits<double>::max(), highX = -lowX;
    double lowZ = lowX, highZ = -lowX;
    for (const Vec3& v : mesh.vertices) {
        lowX = std::min(lowX, v.x);
        highX = std::max(highX, v.x);
        lowZ = std::min(lowZ, v.z);
        highZ = std::max(highZ, v.z);
    }
    return std::max(highX - lowX, highZ - lowZ);
}

bool WriteObjModel(const std::string& path, const ExportMesh& mesh, const std::string& name,
                   const StoneLook& look, std::string& error) {
    const std::size_t slash = path.rfind('/');
    const std::size_t dot = path.rfind('.');
    const std::string stem = dot != std::string::npos && (slash == std::string::npos || dot > slash)
                                 ? path.substr(0, dot)
                                 : path;
    const std::string mtlPath = stem + ".mtl";
    const std::string mtlName = slash == std::string::npos ? mtlPath : mtlPath.substr(slash + 1);
    const std::string material = Word(look.name);

    // The colour seen through the stone across its girdle; mostly clear, mirror-like.
    const auto colour = Transmittance(look, 2.0);
    std::string mtl = "# Kirameki: " + look.name + "\nnewmtl " + material + "\n";
    mtl += "Ka 0 0 0\nKd " + Number(colour[0]) + " " + Number(colour[1]) + " " + Number(colour[2]) +
           "\n";
    mtl += "Ks 1 1 1\nNs 900\n";
    mtl += "Tf " + Number(colour[0]) + " " + Number(colour[1]) + " " + Number(colour[2]) + "\n";
    mtl += "Ni " + Number(look.refractiveIndex) + "\nd 0.25\nillum 2\n";

    std::string obj = "# Kirameki: " + name + ", " + std::to_string(mesh.vertices.size()) +
                      " vertices, " + std::to_string(mesh.faces.size()) + " faces\n";
    // Standard output has no folder for the material file: the OBJ goes alone.
    const bool alone = path == kStandardOutput;
    if (!alone)
        obj += "mtllib " + Word(mtlName) + "\n";
    obj += "o " + Word(name) + "\n";
    char line[128];
    for (const Vec3& v : mesh.vertices) {
        std::snprintf(line, sizeof line, "v %.17g %.17g %.17g\n", v.x, v.y, v.z);
        obj += line;
    }
    for (const Vec3& n : mesh.normals) {
        std::snprintf(line, sizeof line, "vn %.9g %.9g %.9g\n", n.x, n.y, n.z);
        obj += line;
    }
    if (!alone)
        obj += "usemtl " + material + "\n";
    obj += "s off\n";
    for (std::size_t f = 0; f < mesh.faces.size(); ++f) {
        obj += 'f';
        for (const int index : mesh.faces[f])
            obj += " " + std::to_string(index + 1) + "//" + std::to_string(f + 1);
        obj += '\n';
    }
    // The material first: an OBJ never names a material file that is not there.
    return (alone || WriteBytes(mtlPath, mtl, error)) && WriteBytes(path, obj, error);
}

bool WriteStlModel(const std::string& path, const ExportMesh& mesh, const std::string& name,
                   double girdleMillimetres, std::string& error) {
    const double scale = MillimetreScale(mesh, girdleMillimetres);
    // Z up: the stone's axis (Y) turned onto Z, a proper rotation that keeps the winding.
    const auto zUp = [scale](Vec3 v) { return Vec3{v.x, -v.z, v.y} * scale; };
    const auto triangles = Triangles(mesh);

    std::string header = "Kirameki " + name + ", millimetres, Z up";
    header.resize(80, ' ');  // never "solid ...", which readers take for a text STL
    std::string bytes = header;
    PutU32(bytes, std::uint32_t(triangles.size()));
    for (const auto& triangle : triangles) {
        const Vec3 a = zUp(mesh.vertices[std::size_t(triangle[0])]);
        const Vec3 b = zUp(mesh.vertices[std::size_t(triangle[1])]);
        const Vec3 c = zUp(mesh.vertices[std::size_t(triangle[2])]);
        const Vec3 cross = Cross(b - a, c - a);
        const double length = Length(cross);
        const Vec3 normal = length > 0.0 ? cross * (1.0 / length) : Vec3{};
        for (const Vec3& v : {normal, a, b, c}) {
            PutF32(bytes, v.x);
            PutF32(bytes, v.y);
            PutF32(bytes, v.z);
        }
        bytes += std::string(2, '\0');  // attribute byte count
    }
    return WriteBytes(path, bytes, error);
}

bool WriteGlbModel(const std::string& path, const ExportMesh& mesh, const std::string& name,
                   const StoneLook& look, double girdleMillimetres, std::string& error) {
    const double scale = MillimetreScale(mesh, girdleMillimetres) / 1000.0;  // metres
    // Flat faces: every face has corners of its own carrying its normal.
    std::string positions, normals, indices;
    Vec3 low{std::numeric_limits<double>::max(), std::numeric_limits<double>::max(),
             std::numeric_limits<double>::max()};
    Vec3 high = -low;
    std::uint32_t corners = 0, indexCount = 0;
    for (std::size_t f = 0; f < mesh.faces.size(); ++f) {
        const auto& face = mesh.faces[f];
        // The bounds are those of the floats written, as glTF validators compare them.
        for (const int index : face) {
            const Vec3 v = mesh.vertices[std::size_t(index)] * scale;
            const Vec3 stored{double(float(v.x)), double(float(v.y)), double(float(v.z))};
            low = {std::min(low.x, stored.x), std::min(low.y, stored.y), std::min(low.z, stored.z)};
            high = {std::max(high.x, stored.x), std::max(high.y, stored.y),
                    std::max(high.z, stored.z)};
            PutF32(positions, v.x);
            PutF32(positions, v.y);
            PutF32(positions, v.z);
            PutF32(normals, mesh.normals[f].x);
            PutF32(normals, mesh.normals[f].y);
            PutF32(normals, mesh.normals[f].z);
        }
        for (std::uint32_t j = 1; j + 1 < face.size(); ++j) {
            PutU32(indices, corners);
            PutU32(indices, corners + j);
            PutU32(indices, corners + j + 1);
            indexCount += 3;
        }
        corners += std::uint32_t(face.size());
    }
    const std::string binary = indices + positions + normals;
    const std::size_t indexBytes = indices.size(), vertexBytes = positions.size();

    const double radius = girdleMillimetres / 2000.0;  // the girdle radius in metres
    const auto passed = Transmittance(look, 1.0);
    const double dispersion =
        look.refractiveIndex > 1.0 ? 20.0 * look.dispersion / (look.refractiveIndex - 1.0) : 0.0;
    const auto quoted = [](const std::string& text) {
        std::string out = "\"";
        for (const char c : text) {
            if (c == '"' || c == '\\')
                out += '\\';
            if (static_cast<unsigned char>(c) >= 0x20)
                out += c;
        }
        return out + "\"";
    };
    std::string json = R"({"asset":{"version":"2.0","generator":"Kirameki"},)"
                       R"("extensionsUsed":["KHR_materials_ior","KHR_materials_transmission",)"
                       R"("KHR_materials_volume","KHR_materials_dispersion"],)"
                       R"("scene":0,"scenes":[{"nodes":[0]}],)"
                       R"("nodes":[{"name":)" +
                       quoted(name) + R"(,"mesh":0}],"meshes":[{"name":)" + quoted(name) +
                       R"(,"primitives":[{"attributes":{"POSITION":1,"NORMAL":2},"indices":0,)"
                       R"("material":0,"mode":4}]}],)"
                       R"("materials":[{"name":)" +
                       quoted(look.name) +
                       R"(,"pbrMetallicRoughness":{"baseColorFactor":[1,1,1,1],)"
                       R"("metallicFactor":0,"roughnessFactor":0},)"
                       R"("extensions":{"KHR_materials_ior":{"ior":)" +
                       Number(look.refractiveIndex) +
                       R"(},"KHR_materials_transmission":{"transmissionFactor":1},)"
                       R"("KHR_materials_volume":{"thicknessFactor":)" +
                       Number(2.0 * radius) + R"(,"attenuationDistance":)" + Number(radius) +
                       R"(,"attenuationColor":[)" + Number(passed[0]) + "," + Number(passed[1]) +
                       "," + Number(passed[2]) + R"(]},"KHR_materials_dispersion":{"dispersion":)" +
                       Number(dispersion) + "}}}],";
    json += R"("buffers":[{"byteLength":)" + std::to_string(binary.size()) + "}],";
    json += R"("bufferViews":[{"buffer":0,"byteOffset":0,"byteLength":)" +
            std::to_string(indexBytes) +
            R"(,"target":34963},)"
            R"({"buffer":0,"byteOffset":)" +
            std::to_string(indexBytes) + R"(,"byteLength":)" + std::to_string(vertexBytes) +
            R"(,"target":34962},)"
            R"({"buffer":0,"byteOffset":)" +
            std::to_string(indexBytes + vertexBytes) + R"(,"byteLength":)" +
            std::to_string(vertexBytes) + R"(,"target":34962}],)";
    json += R"("accessors":[{"bufferView":0,"componentType":5125,"count":)" +
            std::to_string(indexCount) +
            R"(,"type":"SCALAR"},)"
            R"({"bufferView":1,"componentType":5126,"count":)" +
            std::to_string(corners) + R"(,"type":"VEC3","min":[)" + Number(low.x) + "," +
            Number(low.y) + "," + Number(low.z) + R"(],"max":[)" + Number(high.x) + "," +
            Number(high.y) + "," + Number(high.z) +
            "]},"
            R"({"bufferView":2,"componentType":5126,"count":)" +
            std::to_string(corners) + R"(,"type":"VEC3"}]})";
    json.resize((json.size() + 3) / 4 * 4, ' ');  // chunks are 4-byte aligned

    std::string glb;
    PutU32(glb, 0x46546C67);  // "glTF"
    PutU32(glb, 2);
    PutU32(glb, std::uint32_t(12 + 8 + json.size() + 8 + binary.size()));
    PutU32(glb, std::uint32_t(json.size()));
    PutU32(glb, 0x4E4F534A);  // "JSON"
    glb += json;
    PutU32(glb, std::uint32_t(binary.size()));
    PutU32(glb, 0x004E4942);  // "BIN"
    glb += binary;
    return WriteBytes(path, glb, error);
}

}  // namespace kirameki
