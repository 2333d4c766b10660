#include <CLI/App.hpp>
#include <CLI/Option.hpp>
#include <cmath>
#include <iostream>
#include <memory>
#include <string>

#include "cli/commands.h"
#include "cli/options.h"
#include "model/model_builder.h"
#include "model/stone_tables.h"
#include "output/atomic_file.h"
#include "output/picture_writers.h"
#include "render/polygon_fill.h"
#include "render/preview_geometry.h"
#include "render/rotation_steps.h"
#include "render/view_state.h"
#include "scene/stone_source.h"

namespace kirameki::cli {

namespace {

constexpr double kDegree = 3.14159265358979323846 / 180.0;

struct PreviewOptions {
    int cut = 0, size = 400, polygonColour = 0;
    std::string design;
    double tilt = 0.0, spin = 0.0;
    std::string out;
};

void TurnObject(ViewState& state, TurnAxis axis, double degrees) {
    const auto step = StepFrame({axis, degrees < 0 ? -1 : 1, false}, std::abs(degrees) * kDegree);
    if (step)
        RotationStep(state.object, *step);
}

// Draws the shaded surface model of a cut or a design, as the viewer's panel shows it, into a
// PNG.
int RunPreview(const PreviewOptions& o) {
    auto model = std::make_unique<GemModel>();
    if (!o.design.empty()) {
        OpenDesign design;
        std::string error;
        if (!OpenDesignFile(o.design, design, error) || !FillModel(design.solid, *model, error))
            throw UsageError(error);
    } else {
        if (!HasGenerator(o.cut))
            throw UsageError("--cut 22 is the separator line of the cut list");
        BuildModel(o.cut, kDefaultModelParameters, *model);
    }
    ViewState state = InitialViewState();
    TurnObject(state, TurnAxis::kY, o.spin);
    TurnObject(state, TurnAxis::kX, o.tilt);
    TransformVertices(state, *model);
    auto preview = std::make_unique<PreviewPolygons>();
    const PanelGeometry panel{o.size * 0.5, o.size * 0.5, std::round((o.size - 19) * 0.5)};
    ComputePreview(*model, state.LightDirection, PolygonColours()[o.polygonColour], panel,
                   *preview);
    FrameImage image(o.size, o.size);
    PaintPreview(image, *preview, PackRgb(0, 0, 0));
    std::string error;
    if (!WritePng24(o.out, image, error)) {
        std::cerr << "kirameki-cli: " << error << "\n";
        return 1;
    }
    // The count goes where it does not mix with the picture.
    (o.out == kStandardOutput ? std::cerr : std::cout)
        << "faces drawn: " << preview->facesDrawn << "\n";
    return 0;
}

}  // namespace

Command AddPreview(CLI::App& program) {
    CLI::App* app = program.add_subcommand(
        "preview",
        "draw the shaded surface model of a cut or a design, as the viewer does, "
        "into a PNG");
    auto o = std::make_shared<PreviewOptions>();
    CLI::Option* cut = AddInt(*app, "--cut", &o->cut, 0, kCutListSize - 1,
                              "an entry of the cut list (not 22; default 0)")
                           ->type_name("K");
    AddText(*app, "--design", &o->design, "FILE.asc", "a GemCad faceting design")->excludes(cut);
    AddText(*app, "--out", &o->out, "FILE.png", "the picture ('-': standard output)")->required();
    AddInt(*app, "--size", &o->size, 32, 2048, "the picture's width and height (default 400)")
        ->type_name("PX");
    AddNumber(*app, "--tilt", &o->tilt, -360.0, 360.0, "degrees about the X axis")
        ->type_name("DEG");
    AddNumber(*app, "--spin", &o->spin, -360.0, 360.0, "degrees about the stone's axis first")
        ->type_name("DEG");
    AddInt(*app, "--polygon-colour", &o->polygonColour, 0, kPolygonColourCount - 1,
           "the polygon colour (default 0)");
    return {app, [o] { return RunPreview(*o); }};
}

}  // namespace kirameki::cli
