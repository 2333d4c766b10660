#include <cmath>

#include "model/cut_generators.h"
#include "model/generator_tools.h"

namespace kirameki {

// The cube on the unit circumsphere: the first half built, the second by point reflection.
void GenerateCube(GemModel& model) {
    SetCounts(model, 8, 6);
    VertexArray& v = model.ModelVertices;
    const double a = 1.0 / std::sqrt(3.0);
    v[0] = {a, a, a};
    v[1] = {-a, a, a};
    v[2] = {-a, a, -a};
    v[3] = {a, a, -a};
    MirrorVertices(v, 8);  // 4 = -v3, 5 = -v2, 6 = -v1, 7 = -v0
    FaceArray& f = model.FaceTable;
    SetFace(f, 0, {0, 1, 2, 3});  // y = +a
    SetFace(f, 1, {0, 5, 4, 1});  // z = +a
    SetFace(f, 2, {0, 3, 6, 5});  // x = +a
    MirrorFaces(f, 8, 6);
}

void GenerateIcosahedron(GemModel& model) { SetCounts(model, 0, 0); }
void GenerateDodecahedron(GemModel& model) { SetCounts(model, 0, 0); }
void GenerateOctahedron(GemModel& model) { SetCounts(model, 0, 0); }
void GenerateTetrahedron(GemModel& model) { SetCounts(model, 0, 0); }

}  // namespace kirameki
