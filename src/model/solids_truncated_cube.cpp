#include "model/cut_generators.h"
#include "model/generator_tools.h"

namespace kirameki {

void GenerateHedron14(GemModel& model, int cornerRatio) {
    (void)cornerRatio;
    SetCounts(model, 0, 0);
}
void GenerateHedron26(GemModel& model, int storedRatio) {
    (void)storedRatio;
    SetCounts(model, 0, 0);
}

}  // namespace kirameki
