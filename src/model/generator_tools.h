#pragma once

#include <initializer_list>

#include "model/gem_model.h"

namespace kirameki {

// Routines shared by the cut generators. Many generators build one half of a stone (or one
// quadrant) and complete it by point reflection through the origin or by quarter turns.

// For i in 0 .. n/2 - 1: vertex n-1-i := -(vertex i). With an odd n the middle vertex stays.
void MirrorVertices(VertexArray& vertices, int n);

// For i in 0 .. nFaces/2 - 1: face nFaces-1-i is the point reflection of face i. Reflected
// indices are written in reverse order so that the twin keeps the winding sense.
void MirrorFaces(FaceArray& faces, int nVertices, int nFaces);

// For i in first .. last: vertex i := (-z, y, x) of vertex i + offset, a quarter turn about Y.
void TurnVerticesQuarter(VertexArray& vertices, int first, int last, int offset);

void CopyVertex(VertexArray& vertices, int from, int to);

// Turns a round cut into its oval twin: every x is multiplied by 0.8.
void SquashOval(GemModel& model);

inline constexpr double kDegree = 3.14159265358979323846 / 180.0;

// A point at the given distance from the Y axis and angle (degrees) about it, measured from
// +Z toward -X (the direction the round brilliant numbers its vertices in), at height y.
Vec3 AtAngle(double radius, double degrees, double y);

// One octagonal ring of a step cut at height y: a rectangle of half width w (X) and half
// length l (Z) with its corners cut at 45 degrees, c back along each side. Slots first ..
// first+7 run clockwise seen from above from the +X end of the +X +Z corner facet, so the
// odd slots open the sides and ends.
void StepRing(VertexArray& vertices, int first, double w, double l, double c, double y);

// Writes one face with the indices in the order given.
void SetFace(FaceArray& faces, int face, std::initializer_list<int> indices);

// Sets both counts; generators call it first, as the builder contract asks.
void SetCounts(GemModel& model, int vertexCount, int faceCount);

}  // namespace kirameki
