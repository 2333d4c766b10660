// Any bytes as a faceting design: reading never crashes; what reads builds a stone or says
// why not; a built stone fits the model or says why not; what reads writes back to text that
// reads again.
#include <cstdint>
#include <memory>
#include <string_view>

#include "model/design.h"
#include "model/design_solid.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kirameki;
    static auto model = std::make_unique<GemModel>();
    const DesignRead read =
        ReadDesignText(std::string_view(reinterpret_cast<const char*>(data), size));
    if (!read.ok)
        return 0;
    if (!ReadDesignText(WriteDesignText(read.design)).ok)
        __builtin_trap();
    // Designs of thousands of facets are real but slow to build; the fuzzer keeps to smaller.
    std::size_t facets = 0;
    for (const DesignTier& tier : read.design.tiers)
        facets += tier.indices.size();
    if (facets > 300)
        return 0;
    const SolidBuild build = BuildDesignSolid(read.design);
    if (!build.ok)
        return 0;
    std::string error;
    if (FillModel(build.solid, *model, error) && !IsWellFormed(*model))
        __builtin_trap();
    (void)MeasureProportions(read.design, build.solid);
    return 0;
}
