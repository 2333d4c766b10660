#include <CLI/App.hpp>
#include <CLI/Option.hpp>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cli/commands.h"
#include "cli/scene_arguments.h"
#include "model/model_builder.h"
#include "output/atomic_file.h"
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

struct RenderOptions {
    SceneArguments scene;
    std::string out;
    int repeat = 1;
    int format = 0;
    bool positionInfo = false;
    std::string lighting = "classic";
    double headShadow = 0.0;
    int spectral = 0;
    double dispersion = -1.0;  // the stone's own
};

int RunRender(RenderOptions& o, const CLI::App& app) {
    SceneArguments& scene = o.scene;
    scene.Apply(app);
    if (o.positionInfo)
        RefuseStandardOutput("--position-info", o.out);
    if (o.format == 0) {
        const auto byExtension = PictureFormatForExtension(o.out);
        if (!byExtension)
            throw UsageError("--format is needed for " + o.out + " (1..7)");
        o.format = int(*byExtension);
    }
    const std::optional<LightingModel> lighting = LightingModelNamed(o.lighting);
    if (!lighting)
        throw UsageError("render: --lighting is classic, iso, cos or aset, not '" + o.lighting +
                         "'");
    RenderParameters parameters = scene.Parameters();
    parameters.light.model = *lighting;
    parameters.light.headShadow = o.headShadow;
    parameters.spectralSamples = o.spectral;
    if (o.dispersion >= 0.0)
        parameters.dispersion = o.dispersion;

    auto model = std::make_unique<GemModel>();
    BuildSceneModel(scene.settings, scene.stone, *model);
    const ViewState& view = scene.view;
    TransformVertices(view, *model);
    WriteAllFaceData(*model);

    auto work = std::make_unique<TracerWorkAreas>();
    const RenderGeometry geometry = GeometryFor(scene.settings);
    FrameImage image;
    SilentRenderSink sink;
    std::vector<double> times;
    for (int i = 0; i < o.repeat; ++i) {
        const auto start = std::chrono::steady_clock::now();
        RenderFrame(parameters, *model, view.LightDirection, geometry, *work, image, sink, {});
        times.push_back(
            std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
                .count());
    }
    std::nth_element(times.begin(), times.begin() + times.size() / 2, times.end());
    std::string error;
    if (!SaveScreenShot(image, o.out, PictureFormat(o.format), scene.Scene(), o.positionInfo,
                        error) ||
        (o.positionInfo && !WriteDesignBeside(scene.stone, o.out, error))) {
        std::cerr << "kirameki-cli: " << error << "\n";
        return 1;
    }
    // The time goes where it does not mix with the picture.
    std::fprintf(o.out == kStandardOutput ? stderr : stdout, "frame: %.1f ms\n",
                 times[times.size() / 2]);
    return 0;
}

}  // namespace

Command AddRender(CLI::App& program) {
    CLI::App* app = program.add_subcommand(
        "render", "ray-trace one frame of the scene into a picture; prints the time it took");
    auto o = std::make_shared<RenderOptions>();
    AddText(*app, "--out", &o->out, "FILE", "the picture ('-': standard output)")->required();
    AddInt(*app, "--format", &o->format, 1, 7,
           "1 BMP 24-bit, 2 BMP 16-bit, 3 BMP 256 colours, 4 PNG 24-bit, 5 PNG 16-bit, 6 PNG 256 "
           "colours, 7 GIF (default: from the extension)");
    app->add_flag("--position-info", o->positionInfo,
                  "write the Position-Info record beside the picture (its stem + .gpi)");
    AddInt(*app, "--repeat", &o->repeat, 1, 1000, "render N times and print the median time");
    AddText(*app, "--lighting", &o->lighting, "classic|iso|cos|aset",
            "the light the stone is seen in (default classic, the three lights)");
    AddNumber(*app, "--head-shadow", &o->headShadow, 0.0, 45.0,
              "half-angle in degrees of the observer's head that blocks the light (default 0)");
    AddInt(*app, "--spectral", &o->spectral, 4, 32,
           "spectral fire: trace N wavelengths from 400 to 700 nm instead of three samples");
    AddNumber(*app, "--dispersion", &o->dispersion, 0.0, 0.2,
              "B-G dispersion for spectral fire (default: the stone's, or 0.020)");
    o->scene.AddFlags(*app);
    return {app, [o, app] { return RunRender(*o, *app); }};
}

}  // namespace kirameki::cli
