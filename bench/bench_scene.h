// The default scene of the benchmarks: Diamond, the first cut, the first colour, seen from
// the start orientation.
#pragma once

#include <memory>

#include "model/model_builder.h"
#include "model/stone_tables.h"
#include "render/frame_renderer.h"
#include "render/preview_geometry.h"
#include "render/view_state.h"

namespace kirameki {

struct BenchScene {
    std::unique_ptr<GemModel> model = std::make_unique<GemModel>();
    std::unique_ptr<TracerWorkAreas> work = std::make_unique<TracerWorkAreas>();
    ViewState view = InitialViewState();
    RenderParameters parameters;

    BenchScene() {
        BuildModel(0, kDefaultModelParameters, *model);
        Turn(view);
        parameters.stoneColour = Colours()[0].absorption;
        parameters.stoneIndex = 2.42;
        parameters.fireSpread = Stones()[0].coefficient;
    }
    void Turn(const ViewState& to) {
        view = to;
        TransformVertices(view, *model);
        WriteAllFaceData(*model);
    }
    void Render(int size, FrameImage& image, RenderThreads& threads) {
        SilentRenderSink sink;
        RenderFrame(parameters, *model, view.LightDirection, {size, ScaleForSize(size)}, *work,
                    image, sink, {}, threads);
    }
};

}  // namespace kirameki
