#include "model/cut_generators.h"
#include "model/generator_tools.h"

namespace kirameki {

void GenerateBrilliantCut2(GemModel& model) { SetCounts(model, 0, 0); }
void GenerateBrilliantCut3(GemModel& model) { SetCounts(model, 0, 0); }

}  // namespace kirameki
