#pragma once

#include "model/gem_model.h"

namespace kirameki {

// One generator per entry of the cut list. Each sets both counts first and then fills
// ModelVertices and FaceTable from scratch. Every stone is a closed convex polyhedron inside
// the unit sphere, girdle radius 1.0, Y the stone's axis, crown toward +Y; every face is a
// planar convex polygon of 3..17 vertices wound so that (v1 - v0) x (v2 - v1) points into
// the solid.

void GenerateBrilliantCut(GemModel& model);          // 0: 41 vertices, 57 faces
void GenerateBrilliantCut2(GemModel& model);         // 2: 61, 81
void GenerateBrilliantCut3(GemModel& model);         // 4: 89, 137
void GenerateAntiqueCushionCut(GemModel& model);     // 6: 41, 57
void GenerateEmeraldCut(GemModel& model);            // 7: 58, 57
void GenerateScissorsCut(GemModel& model);           // 8: 50, 45
void GenerateMazarinCut(GemModel& model);            // 9: 21, 33
void GenerateOldSingleCut(GemModel& model);          // 10: 17, 17
void GenerateBrioletteCut(GemModel& model);          // 11: 41, 57
void GenerateDoubleRoseCut(GemModel& model);         // 12: 26, 48
void GenerateBaguetteCut(GemModel& model);           // 13: 12, 10
void GeneratePentakisDodecahedron(GemModel& model);  // 15: 32, 60
void GenerateTruncatedIcosahedron(GemModel& model);  // 16: 60, 32
void GenerateIcosahedron(GemModel& model);           // 17: 12, 20
void GenerateDodecahedron(GemModel& model);          // 18: 20, 12
void GenerateOctahedron(GemModel& model);            // 19: 6, 8
void GenerateCube(GemModel& model);                  // 20: 8, 6
void GenerateTetrahedron(GemModel& model);           // 21: 4, 4

// Transformable solids (entries 14 and 23..27). The prism and pyramid lie along X.
void GenerateEllipsoid(GemModel& model, int surfaces, int rows, double diameterRatio,
                       double compression);
void GeneratePrism(GemModel& model, int sides, int heightRatio);    // nothing outside 3..16
void GeneratePyramid(GemModel& model, int sides, int heightRatio);  // nothing outside 3..16
void GenerateHedron14(GemModel& model, int cornerRatio);            // 36 vertices, 14 faces
void GenerateHedron26(GemModel& model, int storedRatio);            // 24 vertices, 26 faces

}  // namespace kirameki
