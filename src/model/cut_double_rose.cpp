#include "model/cut_generators.h"
#include "model/generator_tools.h"

namespace kirameki {

void GenerateDoubleRoseCut(GemModel& model) { SetCounts(model, 0, 0); }

}  // namespace kirameki
