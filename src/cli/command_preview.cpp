#include <cmath>
#include <iostream>
#include <memory>
#include <string>

#include "cli/commands.h"
#include "model/model_builder.h"
#include "model/stone_tables.h"
#include "output/picture_writers.h"
#include "render/polygon_fill.h"
#include "render/preview_geometry.h"
#include "render/rotation_steps.h"
#include "render/view_state.h"

namespace kirameki::cli {

namespace {

constexpr double kDegree = 3.14159265358979323846 / 180.0;

void TurnObject(ViewState& state, TurnAxis axis, double degrees) {
    const auto step = StepFrame({axis, degrees < 0 ? -1 : 1, false}, std::abs(degrees) * kDegree);
    if (step)
        RotationStep(state.object, *step);
}

}  // namespace

// Draws the shaded surface model of a cut, as the viewer's panel shows it, into a PNG.
int RunPreview(Arguments& args) {
    int cut = 0, size = 400, polygonColour = 0;
    double tilt = 0.0, spin = 0.0;
    std::string out;
    while (!args.Done()) {
        const std::string_view flag = args.Flag();
        if (flag == "--cut") {
            cut = args.IntValue(flag, 0, 27);
        } else if (flag == "--out") {
            out = args.Value(flag);
        } else if (flag == "--size") {
            size = args.IntValue(flag, 32, 2048);
        } else if (flag == "--tilt") {
            tilt = args.DoubleValue(flag, -360.0, 360.0);
        } else if (flag == "--spin") {
            spin = args.DoubleValue(flag, -360.0, 360.0);
        } else if (flag == "--polygon-colour") {
            polygonColour = args.IntValue(flag, 0, kPolygonColourCount - 1);
        } else {
            throw UsageError("preview: unknown option " + std::string(flag));
        }
    }
    if (out.empty())
        throw UsageError(
            "usage: kirameki-cli preview --cut K --out FILE.png "
            "[--size PX] [--tilt DEG] [--spin DEG] [--polygon-colour N]");
    if (!HasGenerator(cut))
        throw UsageError("--cut 22 is the separator line of the cut list");
    auto model = std::make_unique<GemModel>();
    BuildModel(cut, kDefaultModelParameters, *model);
    ViewState state = InitialViewState();
    TurnObject(state, TurnAxis::kY, spin);
    TurnObject(state, TurnAxis::kX, tilt);
    TransformVertices(state, *model);
    auto preview = std::make_unique<PreviewPolygons>();
    const PanelGeometry panel{size * 0.5, size * 0.5, std::round((size - 19) * 0.5)};
    ComputePreview(*model, state.LightDirection, PolygonColours()[polygonColour], panel, *preview);
    FrameImage image(size, size);
    PaintPreview(image, *preview, PackRgb(0, 0, 0));
    std::string error;
    if (!WritePng24(out, image, error)) {
        std::cerr << error << "\n";
        return 1;
    }
    std::cout << "faces drawn: " << preview->facesDrawn << "\n";
    return 0;
}

}  // namespace kirameki::cli
