#pragma once

#include <string>
#include <vector>

#include "model/design.h"
#include "model/gem_model.h"

namespace kirameki {

// A built model written as a faceting design on the given gear: each face a facet, faces of
// one angle and depth one tier, angles and indices read from the planes. An index that falls
// between the teeth is kept fractional and named in notes.
Design DesignFromModel(const GemModel& model, int gear, const std::string& title,
                       std::vector<std::string>& notes);

}  // namespace kirameki
