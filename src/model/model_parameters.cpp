#include "model/model_parameters.h"

#include <cstdint>

#include "model/gem_model.h"

namespace kirameki {

namespace {

constexpr int kEllipsoidEntry = 23;
constexpr int kPrismEntry = 24;
constexpr int kPyramidEntry = 25;

bool Within(std::int32_t value, std::int32_t low, std::int32_t high) {
    return value >= low && value <= high;
}

std::string PolygonSolidProblem(const char* name, std::int32_t sides, std::int32_t height) {
    if (!Within(sides, 3, 16) || !Within(height, 1, 99))
        return std::string("The ") + name + "'s parameters (" + std::to_string(sides) +
               " sides, height " + std::to_string(height) +
               "%) are outside 3 to 16 sides and 1 to 99%.";
    return {};
}

}  // namespace

std::string ModelParametersProblem(int modelIndex, const ModelParameters& p) {
    switch (modelIndex) {
        case kEllipsoidEntry: {
            const std::int64_t surfaces = p[kEllipsoidSurfaces], rows = p[kEllipsoidRows];
            // 64-bit products: a 32-bit row count near its limit must not wrap into range.
            const bool fits = surfaces >= 3 && rows >= 2 && surfaces * (rows + 1) <= kMaxVertices;
            if (!fits)
                return "The ellipsoid's " + std::to_string(surfaces) + " surfaces and " +
                       std::to_string(rows) + " rows do not fit the model's " +
                       std::to_string(kMaxVertices) + " vertices.";
            if (!Within(p[kEllipsoidDiameterRatio], 1, 100) ||
                !Within(p[kEllipsoidCompression], 1, 100))
                return "The ellipsoid's ratios (" + std::to_string(p[kEllipsoidDiameterRatio]) +
                       "%, " + std::to_string(p[kEllipsoidCompression]) +
                       "%) are outside 1 to 100%.";
            return {};
        }
        case kPrismEntry:
            return PolygonSolidProblem("prism", p[kPrismSides], p[kPrismHeight]);
        case kPyramidEntry:
            return PolygonSolidProblem("pyramid", p[kPyramidSides], p[kPyramidHeight]);
        default:
            // The hedrons clamp their ratio; every other entry takes no parameters.
            return {};
    }
}

bool RepairModelParameters(ModelParameters& p) {
    bool changed = false;
    const int groups[][2] = {{kEllipsoidEntry, kEllipsoidCompression},
                             {kPrismEntry, kPrismSides},
                             {kPyramidEntry, kPyramidSides}};
    const int widths[] = {4, 2, 2};
    for (int g = 0; g < 3; ++g) {
        if (ModelParametersProblem(groups[g][0], p).empty())
            continue;
        for (int i = groups[g][1]; i < groups[g][1] + widths[g]; ++i)
            p[std::size_t(i)] = kDefaultModelParameters[std::size_t(i)];
        changed = true;
    }
    return changed;
}

}  // namespace kirameki
