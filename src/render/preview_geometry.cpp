#include "render/preview_geometry.h"

#include <algorithm>
#include <cmath>

namespace kirameki {

void WriteFaceData(FaceRecord& face, const VertexArray& viewVertices) {
    const Vec3 v0 = viewVertices[face.Index[0]];
    const Vec3 v1 = viewVertices[face.Index[1]];
    const Vec3 v2 = viewVertices[face.Index[2]];
    const Vec3 n = Normalized(Cross(v1 - v0, v2 - v1));
    const double d = -Dot(n, v0);
    const Vec3 plane = d != 0.0 ? n * (1.0 / d) : n;
    face.Data = {n.x, n.y, n.z, plane.x, plane.y, plane.z, d != 0.0 ? 1.0 : 0.0};
}

void WriteAllFaceData(GemModel& model) {
    for (int i = 0; i < model.FaceCount; ++i)
        WriteFaceData(model.FaceTable[i], model.ViewVertices);
}

int DiffuseValue(double k) {
    const long c = std::lround(k * 140.0) + 128;
    return int(std::max(64L, std::min(c, 255L)));
}

int HighlightValue(Vec3 normal, Vec3 light, double k) {
    const double r = std::max(-light.z + 2.0 * k * normal.z, 0.0);
    const double r16 = std::pow(r, 16);
    return int(std::min(std::lround(255.0 * r16), 255L));
}

std::uint32_t FaceColour(int diffuse, int highlight, const std::array<double, 3>& polygonColour) {
    std::uint32_t packed = 0;
    for (int channel = 0; channel < 3; ++channel) {
        const long value = std::lround(diffuse * polygonColour[channel] + highlight);
        packed |= std::uint32_t(std::min(value, 255L)) << (8 * channel);
    }
    return packed;
}

void ComputePreview(GemModel& model, Vec3 light, const std::array<double, 3>& polygonColour,
                    const PanelGeometry& panel, PreviewPolygons& out) {
    out.facesDrawn = 0;
    const VertexArray& view = model.ViewVertices;
    for (int i = 0; i < model.FaceCount; ++i) {
        FaceRecord& face = model.FaceTable[i];
        WriteFaceData(face, view);
        const Vec3 v0 = view[face.Index[0]], v1 = view[face.Index[1]], v2 = view[face.Index[2]];
        // The inward normal faces away from the eye exactly when the outward one faces it.
        out.lastCross = (v1.x - v0.x) * (v2.y - v1.y) - (v1.y - v0.y) * (v2.x - v1.x);
        const Vec3 n = face.Normal();
        out.lastDiffuse = Dot(n, light);
        if (out.lastCross < 0.0)
            continue;
        PreviewPolygon& polygon = out.polygons[out.facesDrawn++];
        polygon.colour = FaceColour(DiffuseValue(out.lastDiffuse),
                                    HighlightValue(n, light, out.lastDiffuse), polygonColour);
        polygon.count = face.Count;
        for (int j = 0; j < face.Count; ++j) {
            const Vec3 v = view[face.Index[j]];
            polygon.points[j] = {int(std::lround(panel.centreX + v.x * panel.scale)),
                                 int(std::lround(panel.centreY - v.y * panel.scale))};
        }
    }
}

}  // namespace kirameki
