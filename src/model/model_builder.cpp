#include "model/model_builder.h"

#include <algorithm>
#include <cassert>

#include "model/cut_generators.h"
#include "model/generator_tools.h"

namespace kirameki {

namespace {

void GenerateOval(GemModel& model, void (*round)(GemModel&)) {
    round(model);
    SquashOval(model);
}

// Returns false when the entry has no generator.
bool Generate(int modelIndex, const ModelParameters& p, GemModel& model) {
    switch (modelIndex) {
        case 0:
            GenerateBrilliantCut(model);
            return true;
        case 1:
            GenerateOval(model, GenerateBrilliantCut);
            return true;
        case 2:
            GenerateBrilliantCut2(model);
            return true;
        case 3:
            GenerateOval(model, GenerateBrilliantCut2);
            return true;
        case 4:
            GenerateBrilliantCut3(model);
            return true;
        case 5:
            GenerateOval(model, GenerateBrilliantCut3);
            return true;
        case 6:
            GenerateAntiqueCushionCut(model);
            return true;
        case 7:
            GenerateEmeraldCut(model);
            return true;
        case 8:
            GenerateScissorsCut(model);
            return true;
        case 9:
            GenerateMazarinCut(model);
            return true;
        case 10:
            GenerateOldSingleCut(model);
            return true;
        case 11:
            GenerateBrioletteCut(model);
            return true;
        case 12:
            GenerateDoubleRoseCut(model);
            return true;
        case 13:
            GenerateBaguetteCut(model);
            return true;
        case 14:
            GenerateEllipsoid(model, 16, 8, 1.0, 1.0);
            return true;
        case 15:
            GeneratePentakisDodecahedron(model);
            return true;
        case 16:
            GenerateTruncatedIcosahedron(model);
            return true;
        case 17:
            GenerateIcosahedron(model);
            return true;
        case 18:
            GenerateDodecahedron(model);
            return true;
        case 19:
            GenerateOctahedron(model);
            return true;
        case 20:
            GenerateCube(model);
            return true;
        case 21:
            GenerateTetrahedron(model);
            return true;
        case 23:
            GenerateEllipsoid(model, p[kEllipsoidSurfaces], p[kEllipsoidRows],
                              p[kEllipsoidDiameterRatio] / 100.0, p[kEllipsoidCompression] / 100.0);
            return true;
        case 24:
            GeneratePrism(model, p[kPrismSides], p[kPrismHeight]);
            return true;
        case 25:
            GeneratePyramid(model, p[kPyramidSides], p[kPyramidHeight]);
            return true;
        case 26:
            GenerateHedron14(model, p[kHedron14Ratio]);
            return true;
        case 27:
            GenerateHedron26(model, p[kHedron26StoredRatio]);
            return true;
        default:
            return false;
    }
}

}  // namespace

bool HasGenerator(int modelIndex) {
    return modelIndex >= 0 && modelIndex < kCutListSize && modelIndex != kSeparatorEntry;
}

void BuildModel(int modelIndex, const ModelParameters& parameters, GemModel& model) {
    if (!HasGenerator(modelIndex))
        return;
    if (!Generate(modelIndex, parameters, model))
        return;
    assert(IsWellFormed(model));
    std::copy_n(model.ModelVertices.begin(), model.VertexCount, model.ViewVertices.begin());
}

}  // namespace kirameki
