#include "model/cut_generators.h"
#include "model/generator_tools.h"

namespace kirameki {

void GeneratePentakisDodecahedron(GemModel& model) { SetCounts(model, 0, 0); }
void GenerateTruncatedIcosahedron(GemModel& model) { SetCounts(model, 0, 0); }

}  // namespace kirameki
