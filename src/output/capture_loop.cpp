#include "output/capture_loop.h"

#include "output/gif_files.h"
#include "output/path_block.h"
#include "output/picture_writers.h"
#include "render/preview_geometry.h"
#include "render/rotation_steps.h"

namespace kirameki {

namespace {

constexpr double kPi = 3.141592653589793;

}  // namespace

ViewState FrameOrientation(const ViewState& start, int index, int frameCount,
                           bool viewPointRotation) {
    ViewState view = start;
    const double theta = index * 2.0 * kPi / frameCount;
    // Seen from above, a negative turn about Y is anticlockwise.
    const auto step = StepFrame({TurnAxis::kY, -1, false}, theta);
    if (viewPointRotation)
        RotationStep(view.view, *step);
    else
        LocalRotationStep(view.object, *step);
    return view;
}

CaptureOutcome RunCapture(const CaptureRun& run, GemModel& model, ViewState& view,
                          TracerWorkAreas& work, FrameImage& image, RenderSink& sink,
                          const AbortPoll& abortPoll, CaptureObserver& observer) {
    const int n = run.frameCount;
    const auto [width, height] =
        TrimmedSize(run.geometry.size, run.geometry.size, run.trimming, run.margins);
    for (int k = run.firstFrame; k <= n; ++k) {
        observer.FrameStarted(k, n);
        view = k < n ? FrameOrientation(run.start, k, n, run.viewPointRotation) : run.start;
        TransformVertices(view, model);
        WriteAllFaceData(model);
        observer.Turned(model, view);
        if (k == n)
            break;
        const std::string path = FrameFileName(run.stem, k, n);
        // A frame that exists but does not decode at the run's size is drawn again.
        IndexedImage existing;
        std::string unused;
        if (run.existenceCheck &&
            ReadFrameGif(path, {width, height}, existing, unused) == FrameState::kGood)
            continue;
        if (RenderFrame(run.parameters, model, view.LightDirection, run.geometry, work, image, sink,
                        abortPoll) == 0)
            return {CaptureOutcome::End::kAborted, k, {}};
        FrameImage trimmed;
        if (run.trimming)
            trimmed =
                Trimmed(image, run.margins[0], run.margins[1], run.margins[2], run.margins[3]);
        std::string error;
        if (!WritePicture(path, run.trimming ? trimmed : image, PictureFormat::kGif8,
                          run.background, error))
            return {CaptureOutcome::End::kFailed, k, error};
    }
    return {CaptureOutcome::End::kCompleted, n, {}};
}

}  // namespace kirameki
