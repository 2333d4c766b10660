#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace kirameki {

// The twelve stored parameters of the transformable models, as the settings file keeps them.
// 0, 1: kept as they stand; 2: ellipsoid Z compression percent; 3: ellipsoid XZ diameter
// ratio percent; 4: ellipsoid circumferential surfaces; 5: ellipsoid vertical rows;
// 6, 7: prism base sides and height ratio; 8, 9: pyramid base sides and height ratio;
// 10: 14 hedron corner cutting ratio; 11: 26 hedron value, stored as 100 minus the ratio shown.
using ModelParameters = std::array<std::int32_t, 12>;

inline constexpr ModelParameters kDefaultModelParameters = {1, 0,  70, 80, 16, 8,
                                                            6, 70, 6,  70, 50, 87};

enum ModelParameter : int {
    kEllipsoidCompression = 2,
    kEllipsoidDiameterRatio = 3,
    kEllipsoidSurfaces = 4,
    kEllipsoidRows = 5,
    kPrismSides = 6,
    kPrismHeight = 7,
    kPyramidSides = 8,
    kPyramidHeight = 9,
    kHedron14Ratio = 10,
    kHedron26StoredRatio = 11,
};

// Why the parameters of the solid at this entry of the cut list cannot be built into the
// fixed model storage as a closed solid inside the unit sphere (a value from a damaged file);
// empty when they can, and for every entry that takes no parameters.
std::string ModelParametersProblem(int modelIndex, const ModelParameters& parameters);

// Puts back the defaults of every transformable solid whose parameters cannot be built;
// true when anything changed.
bool RepairModelParameters(ModelParameters& parameters);

}  // namespace kirameki
