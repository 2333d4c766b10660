#pragma once

#include <string>
#include <vector>

#include "model/gem_model.h"

namespace kirameki::testing {

// Everything that makes a model a valid stone: a closed convex polyhedron inside the unit
// sphere whose faces are planar convex polygons of 3..17 vertices, wound so that
// (v1 - v0) x (v2 - v1) points into the solid, with no two neighbouring faces in one plane.
// Returns one line per problem found; empty means valid.
std::vector<std::string> CheckPolyhedron(const GemModel& model);

}  // namespace kirameki::testing
