#include <CLI/App.hpp>
#include <CLI/Option.hpp>
#include <iostream>
#include <memory>
#include <string>

#include "cli/commands.h"
#include "cli/scene_arguments.h"
#include "cli/signal_watcher.h"
#include "cli/terminal_progress.h"
#include "model/model_builder.h"
#include "output/atomic_file.h"
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

class ProgressObserver : public CaptureObserver {
  public:
    void FrameStarted(int index, int frameCount) override { bar_.Show(index, frameCount); }
    void Turned(const GemModel&, const ViewState&) override {}

  private:
    TerminalProgress bar_{"capturing"};
};

struct CaptureOptions {
    SceneArguments scene;
    std::string sqi;
    int frames = 0;
    bool resume = false, checkExistence = false;
};

int RunCaptureCommand(CaptureOptions& o, const CLI::App& app) {
    SignalWatcher signals;
    SceneArguments& scene = o.scene;
    const std::string& sqi = o.sqi;
    const bool resume = o.resume, checkExistence = o.checkExistence;
    bool sceneFlags = false, settingsFile = false, depthGiven = false;
    for (const auto& [flag, value] : scene.Given(app)) {
        // What the record does not hold (the depth) may come with a resume too.
        const bool outsideRecord = flag == "--threads" || flag == "--depth";
        settingsFile = settingsFile || flag == "--settings";
        depthGiven = depthGiven || flag == "--depth";
        sceneFlags = sceneFlags || !(outsideRecord || flag == "--settings");
    }
    RefuseStandardOutput("--sqi", sqi);
    if (resume && (sceneFlags || o.frames))
        throw UsageError(
            "a resumed capture takes its scene from the capture file (only --settings, --depth "
            "and --threads go with --resume)");
    if (!resume && checkExistence)
        throw UsageError("--check-existence goes with --resume");
    scene.Apply(app);

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
        if (o.frames)
            scene.settings.captureFrames = o.frames;
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
    SilentRenderSink sink;
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

struct GifOptions {
    std::string sqi, out, settings;
    int delay = -1;
    bool clockwise = false;
    AnimationFormat format;
};

int RunGifCommand(GifOptions& o) {
    SceneArguments scene;
    if (!o.settings.empty())
        scene.settings = LoadSettingsArgument(o.settings);
    const AnimationFormat& format = o.format;
    if (format.webpQuality >= 0 && !format.webp)
        throw UsageError("gif: --quality is for --webp");
    int delay = o.delay;
    int direction = o.clockwise ? 1 : -1;
    const std::string& sqi = o.sqi;
    const std::string& out = o.out;
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
    // The message goes where it does not mix with the animation.
    (out == kStandardOutput ? std::cerr : std::cout) << message << "\n";
    return 0;
}

}  // namespace

Command AddCapture(CLI::App& program) {
    CLI::App* app = program.add_subcommand(
        "capture",
        "capture a full turn of the stone as numbered GIF frames, or resume one; "
        "Ctrl-C aborts (exit 3)");
    auto o = std::make_shared<CaptureOptions>();
    AddText(*app, "--sqi", &o->sqi, "FILE.sqi",
            "the capture record; the frames go beside it as STEM_F[n].gif")
        ->required();
    AddInt(*app, "--frames", &o->frames, 1, 100000, "frames in the turn (default: the settings')");
    app->add_flag("--resume", o->resume,
                  "carry on where the record says the capture stopped, with its scene");
    app->add_flag("--check-existence", o->checkExistence,
                  "with --resume: redraw every frame that is missing or damaged");
    o->scene.AddFlags(*app);
    return {app, [o, app] { return RunCaptureCommand(*o, *app); }};
}

Command AddGif(CLI::App& program) {
    CLI::App* app = program.add_subcommand(
        "gif", "compile a complete capture into an animated GIF, or an animated WebP");
    auto o = std::make_shared<GifOptions>();
    AddText(*app, "--sqi", &o->sqi, "FILE.sqi", "the capture record")->required();
    AddText(*app, "--out", &o->out, "FILE", "the animation ('-': standard output)")->required();
    AddInt(*app, "--delay", &o->delay, 0, 65535,
           "hundredths of a second a frame (default: the settings' time weight)")
        ->type_name("T");
    app->add_flag("--clockwise", o->clockwise, "turn clockwise (default: the settings' direction)");
    AddText(*app, "--settings", &o->settings, "FILE", "take the defaults from this settings file");
    app->add_flag("--webp", o->format.webp, "an animated WebP in full colour instead of a GIF");
    AddInt(*app, "--quality", &o->format.webpQuality, 0, 100,
           "with --webp: lossy at this quality (default: lossless)")
        ->type_name("Q");
    return {app, [o] { return RunGifCommand(*o); }};
}

}  // namespace kirameki::cli
