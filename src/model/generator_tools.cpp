#include "model/generator_tools.h"

#include <cassert>
#include <cmath>

namespace kirameki {

void MirrorVertices(VertexArray& vertices, int n) {
    for (int i = 0; i < n / 2; ++i)
        vertices[n - 1 - i] = -vertices[i];
}

void MirrorFaces(FaceArray& faces, int nVertices, int nFaces) {
    for (int i = 0; i < nFaces / 2; ++i) {
        const FaceRecord& source = faces[i];
        FaceRecord& twin = faces[nFaces - 1 - i];
        twin.Count = source.Count;
        for (int j = 0; j < source.Count; ++j)
            twin.Index[source.Count - 1 - j] = (nVertices - 1) - source.Index[j];
    }
}

void TurnVerticesQuarter(VertexArray& vertices, int first, int last, int offset) {
    for (int i = first; i <= last; ++i) {
        const Vec3 v = vertices[i + offset];
        vertices[i] = {-v.z, v.y, v.x};
    }
}

void CopyVertex(VertexArray& vertices, int from, int to) {
    vertices[to] = vertices[from];
}

void SquashOval(GemModel& model) {
    for (int i = 0; i < model.VertexCount; ++i)
        model.ModelVertices[i].x *= 0.8;
}

Vec3 AtAngle(double radius, double degrees, double y) {
    return {-radius * std::sin(degrees * kDegree), y, radius * std::cos(degrees * kDegree)};
}

void StepRing(VertexArray& v, int first, double w, double l, double c, double y) {
    v[first + 0] = {w, y, l - c};
    v[first + 1] = {w - c, y, l};
    v[first + 2] = {-(w - c), y, l};
    v[first + 3] = {-w, y, l - c};
    v[first + 4] = {-w, y, -(l - c)};
    v[first + 5] = {-(w - c), y, -l};
    v[first + 6] = {w - c, y, -l};
    v[first + 7] = {w, y, -(l - c)};
}

void SetFace(FaceArray& faces, int face, std::initializer_list<int> indices) {
    assert(indices.size() >= 3 && indices.size() <= kMaxFaceVertices);
    FaceRecord& record = faces[face];
    record.Count = static_cast<std::int32_t>(indices.size());
    int j = 0;
    for (int index : indices)
        record.Index[j++] = index;
}

void SetCounts(GemModel& model, int vertexCount, int faceCount) {
    model.VertexCount = vertexCount;
    model.FaceCount = faceCount;
}

}  // namespace kirameki
