// Any bytes as a capture or position record: reading never crashes, and whatever the record
// holds, the scene built from it is either refused with a message or can be built, turned
// and shaded without reading outside a table.
#include <cstdint>
#include <memory>

#include "model/model_builder.h"
#include "model/stone_tables.h"
#include "output/capture_info.h"
#include "render/preview_geometry.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kirameki;
    static auto model = std::make_unique<GemModel>();
    AppSettings settings;
    LoadDefaults(settings, {"/s/", "/c/"});
    ViewState view = InitialViewState();
    CaptureState capture;
    SceneState scene{settings, view, capture};
    const bool headerOnly = size > 0 && (data[0] & 0x80) != 0;
    ReadCaptureInfoBytes(data, size, scene, headerOnly);
    (void)CaptureInfoBytes(scene);
    if (!SceneProblem(settings).empty())
        return 0;
    BuildModel(settings.model, settings.modelParameters, *model);
    TransformVertices(view, *model);
    auto preview = std::make_unique<PreviewPolygons>();
    ComputePreview(*model, view.LightDirection, PolygonColours()[0], {100, 100, 90}, *preview);
    (void)Stones()[settings.stone].coefficient;
    (void)Colours()[settings.stoneColour].absorption;
    return 0;
}
