#include <iostream>
#include <memory>
#include <string>

#include "cli/commands.h"
#include "cli/scene_arguments.h"
#include "cli/signal_watcher.h"
#include "cli/terminal_progress.h"
#include "model/model_builder.h"
#include "output/capture_info.h"
#include "output/capture_loop.h"
#include "output/gif_compiler.h"
#include "output/messages.h"
#include "output/path_block.h"
#include "output/record_lock.h"
#include "scene/capture_job.h"
#include "scene/gif_job.h"
#include "scene/render_settings.h"
#include "scene/stone_source.h"

namespace kirameki::cli {

namespace {

class QuietSink : public RenderSink {
  public:
    void RenderStarted() override {}
    void RenderProgress(int) override {}
    void RowsRendered(const FrameImage&, int, int) override {}
    void RenderFinished() override {}
};

class ProgressObserver : public CaptureObserver {
  public:
    void FrameStarted(int index, int frameCount) override { bar_.Show(index, frameCount); }
    void Turned(const GemModel&, const ViewState&) override {}

  private:
    TerminalProgress bar_{"capturing"};
};

}  // namespace

int RunCapture(Arguments& args) {
    SignalWatcher signals;
    SceneArguments scene;
    std::string sqi;
    int frames = 0;
    bool resume = false, checkExistence = false, sceneFlags = false, settingsFile = false,
         depthGiven = false;
    while (!args.Done()) {
        const std::string_view flag = args.Flag();
        if (flag == "--sqi") {
            sqi = args.Value(flag);
        } else if (flag == "--frames") {
            frames = args.IntValue(flag, 1, 100000);
        } else if (flag == "--resume") {
            resume = true;
        } else if (flag == "--check-existence") {
            checkExistence = true;
        } else if (scene.Take(flag, args)) {
            // What the record does not hold (the depth) may come with a resume too.
            const bool outsideRecord = flag == "--threads" || flag == "--depth";
            settingsFile = settingsFile || flag == "--settings";
            depthGiven = depthGiven || flag == "--depth";
            sceneFlags = sceneFlags || !(outsideRecord || flag == "--settings");
        } else {
            throw UsageError("capture: unknown option " + std::string(flag));
        }
    }
    if (sqi.empty())
        throw UsageError(
            "usage: kirameki-cli capture --sqi FILE.sqi [--frames N] [scene flags] | "
            "--sqi FILE.sqi --resume [--check-existence]");
    if (resume && (sceneFlags || frames))
        throw UsageError(
            "a resumed capture takes its scene from the capture file (only --settings, --depth "
            "and --threads go with --resume)");
    if (!resume && checkExistence)
        throw UsageError("--check-existence goes with --resume");

    PathBlock block;
    ChoosePath(sqi, block);
    RecordLock lock;
    std::string error;
    if (!lock.Acquire(sqi, error)) {
        std::cerr << "kirameki-cli: " << error << "\n";
        return 1;
    }
    CaptureStart from;
    if (resume) {
        // As the viewer does: what the record does not hold comes from the settings file
        // given, else from the program's own, unless --depth said otherwise.
        if (!settingsFile) {
            const int depth = scene.settings.recursionDepth;
            scene.settings = ProgramSettings(scene.settings);
            if (depthGiven)
                scene.settings.recursionDepth = depth;
        }
        scene.ReadRecord(sqi, false);
        if (const std::string problem =
                RecordedCountsProblem(scene.capture, scene.settings.captureFrames);
            !problem.empty())
            throw UsageError(problem);
        from = ResumeStart(scene.capture, scene.settings.captureFrames, checkExistence);
        if (checkExistence)
            scene.capture.existenceCheck = 1;  // a later resume checks again
    } else {
        if (frames)
            scene.settings.captureFrames = frames;
        scene.capture = {};
    }
    scene.Parameters();  // refuses a scene no table holds
    if (!resume && (!WriteCaptureInfo(sqi, scene.Scene(), error) ||
                    !WriteDesignBeside(scene.stone, sqi, error))) {
        std::cerr << "kirameki-cli: " << messages::kFailedToOpenFile << " " << error << "\n";
        return 1;
    }

    auto model = std::make_unique<GemModel>();
    BuildSceneModel(scene.settings, scene.stone, *model);
    auto work = std::make_unique<TracerWorkAreas>();
    CaptureRun run = MakeCaptureRun(scene.settings, scene.view, block.fullPath, from);
    run.parameters.threads = scene.threads;

    FrameImage image;
    QuietSink sink;
    CaptureOutcome outcome;
    {
        ProgressObserver observer;
        outcome = kirameki::RunCapture(
            run, *model, scene.view, *work, image, sink, [&] { return signals.Interrupted(); },
            observer);
    }
    // The record keeps the run's start orientation and the frames on disk, whatever the end.
    scene.view = run.start;
    scene.capture.framesCaptured = outcome.framesDone;
    const bool recordWritten =
        WriteCaptureInfo(block.fullPath + block.extension, scene.Scene(), error);
    if (!recordWritten)
        std::cerr << "kirameki-cli: " << messages::kFailedToOpenFile << " " << error << "\n";
    switch (outcome.end) {
        case CaptureOutcome::End::kFailed:
            std::cerr << "kirameki-cli: capturing stopped at frame " << outcome.framesDone << ": "
                      << outcome.error << "\n";
            return 1;
        case CaptureOutcome::End::kAborted:
            std::cerr << messages::kCapturingAborted << "\n";
            return 3;
        case CaptureOutcome::End::kCompleted:
            break;
    }
    if (!recordWritten)
        return 1;
    std::cout << messages::Format(messages::kAllFramesCaptured, block.name) << "\n";
    return 0;
}

int RunGif(Arguments& args) {
    SceneArguments scene;
    std::string sqi, out;
    int delay = -1, direction = -1;
    AnimationFormat format;
    while (!args.Done()) {
        const std::string_view flag = args.Flag();
        if (flag == "--sqi") {
            sqi = args.Value(flag);
        } else if (flag == "--webp") {
            format.webp = true;
        } else if (flag == "--quality") {
            format.webpQuality = args.IntValue(flag, 0, 100);
        } else if (flag == "--out") {
            out = args.Value(flag);
        } else if (flag == "--delay") {
            delay = args.IntValue(flag, 0, 65535);
        } else if (flag == "--clockwise") {
            direction = 1;
        } else if (flag == "--settings") {
            scene.settings = LoadSettingsArgument(args.Value(flag));
        } else {
            throw UsageError("gif: unknown option " + std::string(flag));
        }
    }
    if (sqi.empty() || out.empty())
        throw UsageError(
            "usage: kirameki-cli gif --sqi FILE.sqi --out FILE [--delay T] "
            "[--clockwise] [--settings FILE] [--webp [--quality Q]]");
    if (format.webpQuality >= 0 && !format.webp)
        throw UsageError("gif: --quality is for --webp");
    if (delay < 0)
        delay = scene.settings.gifTimeWeight;
    if (direction < 0)
        direction = scene.settings.gifDirection;
    scene.ReadRecord(sqi, true);
    const int n = scene.settings.captureFrames;
    if (n < 1 || n != scene.capture.framesCaptured)
        throw UsageError(messages::kNotAllFramesCaptured);
    const GifJob job = MakeGifJob(sqi, n, delay, direction, out, format);
    std::string message;
    GifCompiled compiled = GifCompiled::kWriteFailed;
    {
        TerminalProgress bar("compiling");
        compiled = RunGifJob(
            job, [&](int i, int total) { bar.Show(i, total); }, message);
    }
    if (compiled != GifCompiled::kSaved) {
        std::cerr << message << "\n";
        return compiled == GifCompiled::kFrameProblem ? 2 : 1;
    }
    std::cout << message << "\n";
    return 0;
}

}  // namespace kirameki::cli
