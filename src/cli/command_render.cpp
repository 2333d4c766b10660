#include <algorithm>
#include <chrono>
#include <cstdio>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "cli/scene_arguments.h"
#include "model/model_builder.h"
#include "output/capture_info.h"
#include "output/path_block.h"
#include "output/picture_writers.h"
#include "render/frame_renderer.h"
#include "render/preview_geometry.h"
#include "scene/render_settings.h"
#include "scene/screen_shot.h"
#include "scene/stone_source.h"

namespace kirameki::cli {

namespace {

class SilentSink : public RenderSink {
  public:
    void RenderStarted() override {}
    void RenderProgress(int) override {}
    void RowsRendered(const FrameImage&, int, int) override {}
    void RenderFinished() override {}
};

}  // namespace

int RunRender(Arguments& args) {
    SceneArguments scene;
    std::string out;
    int repeat = 1;
    int format = 0;
    bool positionInfo = false;
    while (!args.Done()) {
        const std::string_view flag = args.Flag();
        if (scene.Take(flag, args))
            continue;
        if (flag == "--out") {
            out = args.Value(flag);
        } else if (flag == "--repeat") {
            repeat = args.IntValue(flag, 1, 1000);
        } else if (flag == "--format") {
            format = args.IntValue(flag, 1, 7);
        } else if (flag == "--position-info") {
            positionInfo = true;
        } else {
            throw UsageError("render: unknown option " + std::string(flag));
        }
    }
    if (out.empty())
        throw UsageError("usage: kirameki-cli render --out FILE [scene flags]");
    if (format == 0) {
        const auto byExtension = PictureFormatForExtension(out);
        if (!byExtension)
            throw UsageError("--format is needed for " + out + " (1..7)");
        format = int(*byExtension);
    }
    const RenderParameters parameters = scene.Parameters();

    auto model = std::make_unique<GemModel>();
    BuildSceneModel(scene.settings, scene.stone, *model);
    const ViewState& view = scene.view;
    TransformVertices(view, *model);
    WriteAllFaceData(*model);

    auto work = std::make_unique<TracerWorkAreas>();
    const RenderGeometry geometry = GeometryFor(scene.settings);
    FrameImage image;
    SilentSink sink;
    std::vector<double> times;
    for (int i = 0; i < repeat; ++i) {
        const auto start = std::chrono::steady_clock::now();
        RenderFrame(parameters, *model, view.LightDirection, geometry, *work, image, sink, {});
        times.push_back(
            std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
                .count());
    }
    std::nth_element(times.begin(), times.begin() + times.size() / 2, times.end());
    std::string error;
    if (!SaveScreenShot(image, out, PictureFormat(format), scene.Scene(), positionInfo, error) ||
        (positionInfo && !WriteDesignBeside(scene.stone, out, error))) {
        std::cerr << "kirameki-cli: " << error << "\n";
        return 1;
    }
    std::printf("frame: %.1f ms\n", times[times.size() / 2]);
    return 0;
}

}  // namespace kirameki::cli
