// Any bytes as a settings file: loading never crashes or reads outside the record, the record
// always writes back as 729 bytes that load to the same record, and the scene it holds is
// either refused with a message or built, as the viewer builds it at start.
#include <cstdint>
#include <memory>

#include "model/model_builder.h"
#include "output/app_settings.h"
#include "output/capture_info.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kirameki;
    static auto model = std::make_unique<GemModel>();
    AppSettings settings;
    ReadSettingsBytes(data, size, settings);
    const auto bytes = SettingsBytes(settings);
    AppSettings again;
    ReadSettingsBytes(bytes.data(), bytes.size(), again);
    if (SettingsBytes(again) != bytes)
        __builtin_trap();
    (void)PathText(settings.screenShotFolder);
    (void)PathText(settings.captureFolder);
    if (SceneProblem(settings).empty())
        BuildModel(settings.model, settings.modelParameters, *model);
    // The viewer puts back the defaults of parameters that cannot be built, then builds.
    RepairModelParameters(settings.modelParameters);
    BuildModel(settings.model, settings.modelParameters, *model);
    return 0;
}
