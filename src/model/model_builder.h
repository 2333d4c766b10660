#pragma once

#include "model/gem_model.h"
#include "model/model_parameters.h"

namespace kirameki {

constexpr int kCutListSize = 28;
constexpr int kSeparatorEntry = 22;

// True for the entries of the cut list that have a generator (all but the separator line).
bool HasGenerator(int modelIndex);

// Builds entry modelIndex of the cut list into the model and copies the vertices into the
// view copy. For the separator entry or an index outside 0..27 nothing changes at all.
void BuildModel(int modelIndex, const ModelParameters& parameters, GemModel& model);

}  // namespace kirameki
