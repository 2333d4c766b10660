#pragma once

#include <string>
#include <vector>

#include "model/design.h"
#include "model/gem_model.h"

namespace kirameki {

// One facet of a design as a plane: the stone lies where Dot(normal, p) <= distance.
struct DesignPlane {
    Vec3 normal;  // outward, unit
    double distance = 0.0;
    int tier = 0;
    int position = 0;  // which index of the tier
};

// The facets' planes in the models' frame: Y the stone's axis with the crown up; an index's
// azimuth turns from +X toward +Z.
std::vector<DesignPlane> DesignPlanes(const Design& design);

// The stone a design cuts: the intersection of every facet's half-space, with the models'
// conventions: Y the axis, crown up, the girdle's middle at Y = 0, scaled so that the largest
// girdle radius is 1.0 (or less, so that every corner lies inside the unit sphere).
struct DesignSolid {
    std::vector<Vec3> vertices;
    // One face per plane that touches the stone, wound so that (v1 - v0) x (v2 - v1) points
    // into the solid, as the built-in models are.
    std::vector<std::vector<int>> faces;
    std::vector<int> facePlane;      // the plane of each face
    std::vector<bool> touching;      // for each plane: does it make a face of the stone
    std::vector<std::string> notes;  // vertices merged, facets that do not touch
    // Design point q is model point (q - (0, lift, 0)) * scale.
    double lift = 0.0;
    double scale = 1.0;

    // The plane's distance in the model's frame (its normal is the design's).
    double ModelDistance(const DesignPlane& plane) const {
        return (plane.distance - plane.normal.y * lift) * scale;
    }
};

struct SolidBuild {
    bool ok = false;
    std::string error;  // "line 7: the design is open below the girdle: no pavilion facets"
    DesignSolid solid;
};

SolidBuild BuildDesignSolid(const Design& design);

// Puts the solid into the model's fixed storage (model and view vertices, faces); false
// with the reason when it does not fit, the model then unchanged.
bool FillModel(const DesignSolid& solid, GemModel& model, std::string& error);

// The proportions faceters compare, as fractions of the girdle width.
struct DesignProportions {
    double lengthToWidth = 0.0;
    double table = 0.0;
    double crownHeight = 0.0;
    double pavilionDepth = 0.0;
    double totalDepth = 0.0;
    double girdleThickness = 0.0;
    double volume = 0.0;  // per cubed width
};

DesignProportions MeasureProportions(const Design& design, const DesignSolid& solid);

}  // namespace kirameki
