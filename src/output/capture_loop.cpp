#include "output/capture_loop.h"

#include <exception>
#include <optional>
#include <thread>
#include <utility>

#include "output/gif_files.h"
#include "output/path_block.h"
#include "output/picture_writers.h"
#include "render/preview_geometry.h"
#include "render/rotation_steps.h"

namespace kirameki {

namespace {

constexpr double kPi = 3.141592653589793;

// Writes the frames of a run one at a time on a thread of its own, so that a frame is
// reduced to its palette and written while the next one is traced. A frame is handed over
// only when the one before is on disk, so the frames are written in order and a failed
// frame is the last one tried.
class FrameWriter {
  public:
    explicit FrameWriter(const CaptureRun& run) : run_(run) {}
    ~FrameWriter() { Wait(); }
    FrameWriter(const FrameWriter&) = delete;
    FrameWriter& operator=(const FrameWriter&) = delete;

    // Starts writing frame `index` from a copy of the picture. Only after Wait.
    void Start(int index, std::string path, const FrameImage& image) {
        index_ = index;
        path_ = std::move(path);
        picture_ = image;
        thread_ = std::thread([this] { Write(); });
    }

    // Waits for the frame under way; false, with its index and the reason, when it could
    // not be written.
    bool Wait() {
        if (thread_.joinable())
            thread_.join();
        return error_.empty();
    }
    int Index() const { return index_; }
    const std::string& Error() const { return error_; }
    const FrameImage& Picture() const { return picture_; }

  private:
    // Nothing may escape the thread: running out of memory is a frame not written.
    void Write() noexcept {
        try {
            const FrameImage trimmed = run_.trimming
                                           ? Trimmed(picture_, run_.margins[0], run_.margins[1],
                                                     run_.margins[2], run_.margins[3])
                                           : FrameImage{};
            if (WritePicture(path_, run_.trimming ? trimmed : picture_, PictureFormat::kGif8,
                             run_.background, error_))
                return;
        } catch (const std::exception&) {
            error_.clear();
        }
        if (error_.empty())
            error_ = "The frame " + path_ + " could not be written";
    }

    const CaptureRun& run_;
    int index_ = 0;
    std::string path_;
    FrameImage picture_;
    std::string error_;
    std::thread thread_;
};

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
    RenderThreads threads;
    return RunCapture(run, model, view, work, image, sink, abortPoll, observer, threads);
}

CaptureOutcome RunCapture(const CaptureRun& run, GemModel& model, ViewState& view,
                          TracerWorkAreas& work, FrameImage& image, RenderSink& sink,
                          const AbortPoll& abortPoll, CaptureObserver& observer,
                          RenderThreads& threads) {
    const int n = run.frameCount;
    const auto [width, height] =
        TrimmedSize(run.geometry.size, run.geometry.size, run.trimming, run.margins);
    const auto turn = [&](int k) {
        view = k < n ? FrameOrientation(run.start, k, n, run.viewPointRotation) : run.start;
        TransformVertices(view, model);
        WriteAllFaceData(model);
        observer.Turned(model, view);
    };
    FrameWriter writer(run);
    // The frame before may still be on its way to the disk: a run never ends before it is
    // whole. If it failed, the run stops there, turned back to it.
    const auto failed = [&]() -> std::optional<CaptureOutcome> {
        if (writer.Wait())
            return std::nullopt;
        turn(writer.Index());
        image = writer.Picture();
        return CaptureOutcome{CaptureOutcome::End::kFailed, writer.Index(), writer.Error()};
    };
    for (int k = run.firstFrame; k <= n; ++k) {
        observer.FrameStarted(k, n);
        turn(k);
        if (k == n)
            break;
        const std::string path = FrameFileName(run.stem, k, n);
        // A frame that exists but does not decode at the run's size is drawn again.
        IndexedImage existing;
        std::string unused;
        if (run.existenceCheck &&
            ReadFrameGif(path, {width, height}, existing, unused) == FrameState::kGood)
            continue;
        const bool rendered = RenderFrame(run.parameters, model, view.LightDirection, run.geometry,
                                          work, image, sink, abortPoll, threads) != 0;
        if (auto outcome = failed())
            return *outcome;
        if (!rendered)
            return {CaptureOutcome::End::kAborted, k, {}};
        writer.Start(k, path, image);
    }
    if (auto outcome = failed())
        return *outcome;
    return {CaptureOutcome::End::kCompleted, n, {}};
}

}  // namespace kirameki
