#pragma once

#include <array>
#include <cstdint>

#include "model/gem_model.h"

namespace kirameki {

struct ScreenPoint {
    int x = 0;
    int y = 0;
};

// One face to fill, in panel pixels, with its colour packed red | green << 8 | blue << 16.
struct PreviewPolygon {
    std::int32_t count = 0;
    std::array<ScreenPoint, kMaxFaceVertices> points{};
    std::uint32_t colour = 0;
};

// Where the stone is drawn: the panel's centre and its pixels per model unit.
struct PanelGeometry {
    double centreX = 0.0;
    double centreY = 0.0;
    double scale = 1.0;
};

// The shaded surface model of one redraw: the faces that face the eye, in face order (a
// convex stone needs no depth sort), ready to be filled.
struct PreviewPolygons {
    int facesDrawn = 0;
    double lastCross = 0.0;    // the facing test's value of the last face
    double lastDiffuse = 0.0;  // n . L of the last face
    std::array<PreviewPolygon, kMaxFaces> polygons{};
};

// Writes a face's unit normal, plane coefficients and plane flag for the current view
// vertices. The tracer reads these; every face gets them, facing the eye or not.
void WriteFaceData(FaceRecord& face, const VertexArray& viewVertices);
void WriteAllFaceData(GemModel& model);

// Diffuse value of a face: round(k * 140) + 128 limited to 64..255, k = n . L, so a face
// facing the eye is never darker than a quarter.
int DiffuseValue(double k);

// Highlight of the main light reflected toward the eye: 255 * r^16, r the reflected ray's
// component toward the eye (0 when it points away), limited to 255.
int HighlightValue(Vec3 normal, Vec3 light, double k);

// A face's fill colour from its diffuse and highlight values and the polygon colour.
std::uint32_t FaceColour(int diffuse, int highlight, const std::array<double, 3>& polygonColour);

// Fills the face data of every face and lists the faces facing the eye with their colours.
void ComputePreview(GemModel& model, Vec3 light, const std::array<double, 3>& polygonColour,
                    const PanelGeometry& panel, PreviewPolygons& out);

}  // namespace kirameki
