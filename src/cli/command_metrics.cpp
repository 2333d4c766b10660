#include <CLI/App.hpp>
#include <CLI/Option.hpp>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "cli/commands.h"
#include "cli/json_output.h"
#include "cli/options.h"
#include "cli/scene_arguments.h"
#include "cli/signal_watcher.h"
#include "cli/terminal_progress.h"
#include "model/stone_tables.h"
#include "output/atomic_file.h"
#include "output/picture_writers.h"
#include "output/tilt_plot.h"
#include "render/light_study.h"
#include "scene/render_settings.h"
#include "scene/stone_source.h"

namespace kirameki::cli {

namespace {

struct MetricsOptions {
    SceneArguments scene;
    double tiltMax = 30.0;
    int tiltSteps = 13;
    double headShadow = 16.0;
    int spectral = 8;
    bool json = false;
    std::string report;
};

struct Figure {
    const char* key;
    const char* label;
    double LightFigures::*field;
};

constexpr Figure kFigures[] = {
    {"isoBrightness", "ISO brightness", &LightFigures::isoBrightness},
    {"cosBrightness", "COS brightness", &LightFigures::cosBrightness},
    {"leakage", "leakage", &LightFigures::leakage},
    {"headShadow", "head shadow", &LightFigures::headShadow},
    {"asetGreen", "ASET green", &LightFigures::asetGreen},
    {"asetRed", "ASET red", &LightFigures::asetRed},
    {"asetBlue", "ASET blue", &LightFigures::asetBlue},
    {"asetBlack", "ASET black", &LightFigures::asetBlack},
    {"contrast", "contrast", &LightFigures::contrast},
    {"fire", "fire", &LightFigures::fire},
    {"meanChroma", "mean chroma", &LightFigures::meanChroma},
};

bool FaceUpOnly(const Figure& f) {
    return f.field == &LightFigures::fire || f.field == &LightFigures::meanChroma;
}

Json FiguresJson(const LightFigures& figures, bool withFire) {
    Json out = Json::object();
    for (const Figure& f : kFigures)
        if (withFire || !FaceUpOnly(f))
            out[f.key] = figures.*f.field;
    return out;
}

Json StudyJson(const MetricsOptions& o, const LightStudySetup& setup, const LightStudy& study) {
    const AppSettings& s = o.scene.settings;
    Json out = Json::object();
    if (o.scene.stone.design)
        out["design"] = ValidUtf8(o.scene.stone.design->path);
    else
        out["cut"] = s.model;
    out["stone"] = s.stone;
    out["colour"] = s.stoneColour;
    out["index"] = s.refractiveIndex;
    out["dispersion"] = setup.parameters.dispersion;
    out["size"] = setup.size;
    out["headShadow"] = setup.headShadow;
    out["tiltMax"] = setup.tiltMax;
    out["faceUp"] = FiguresJson(study.faceUp, true);
    out["tiltAverage"] = FiguresJson(study.tiltAverage, false);
    out["isoSpread"] = study.isoSpread;
    Json tilts = Json::array();
    for (const LightFigures& t : study.tilts) {
        Json one = FiguresJson(t, false);
        one["tilt"] = t.tilt;
        tilts.push_back(std::move(one));
    }
    out["tilts"] = std::move(tilts);
    return out;
}

void PrintTable(const LightStudy& study, const LightStudySetup& setup) {
    std::printf("%-16s %9s %10s\n", "", "face-up", "tilt avg");
    for (const Figure& f : kFigures) {
        if (FaceUpOnly(f))
            std::printf("%-16s %8.1f %%\n", f.label, study.faceUp.*f.field);
        else
            std::printf("%-16s %8.1f %% %8.1f %%\n", f.label, study.faceUp.*f.field,
                        study.tiltAverage.*f.field);
    }
    std::printf("ISO spread over tilts of 0, %g and %g degrees: %.1f %%\n", setup.tiltMax / 2,
                setup.tiltMax, study.isoSpread);
    std::printf("%-8s %8s %8s %8s %8s\n", "tilt", "ISO", "COS", "leakage", "head");
    for (const LightFigures& t : study.tilts)
        std::printf("%8.1f %7.1f%% %7.1f%% %7.1f%% %7.1f%%\n", t.tilt, t.isoBrightness,
                    t.cosBrightness, t.leakage, t.headShadow);
}

// The pictures, the tilt plot and the figures of the study, in the report folder.
bool WriteReport(const std::string& folder, const Json& figures, const LightStudy& study,
                 std::string& error) {
    std::error_code code;
    std::filesystem::create_directories(folder, code);
    if (code) {
        error = folder + ": " + code.message();
        return false;
    }
    const auto in = [&](const char* name) {
        return (std::filesystem::path(folder) / name).string();
    };
    const std::string text = figures.dump(2, ' ', false, nlohmann::json::error_handler_t::replace);
    return WritePng24(in("iso.png"), study.iso, error) &&
           WritePng24(in("cos.png"), study.cos, error) &&
           WritePng24(in("aset.png"), study.aset, error) &&
           WritePng24(in("spectral.png"), study.spectral, error) &&
           WritePng24(in("tilt.png"), DrawTiltPlot(study.tilts), error) &&
           WriteFileAtomically(
               in("metrics.json"),
               [&](std::FILE* f) { return std::fputs((text + "\n").c_str(), f) >= 0; }, error);
}

int RunMetrics(MetricsOptions& o, const CLI::App& app) {
    SignalWatcher signals;
    o.scene.Apply(app);
    if (o.tiltSteps % 2 == 0)
        throw UsageError("metrics: --tilt-steps must be odd, so that face-up is one of them");
    LightStudySetup setup;
    setup.parameters = o.scene.Parameters();
    setup.parameters.threads = o.scene.threads;
    setup.size = o.scene.settings.imageSize;
    setup.headShadow = o.headShadow;
    setup.tiltMax = o.tiltMax;
    setup.tiltSteps = o.tiltSteps;
    setup.spectralSamples = o.spectral;

    auto model = std::make_unique<GemModel>();
    BuildSceneModel(o.scene.settings, o.scene.stone, *model);
    auto work = std::make_unique<TracerWorkAreas>();
    LightStudy study;
    bool done = false;
    {
        TerminalProgress bar("measuring");
        done = RunLightStudy(
            setup, *model, o.scene.view.LightDirection, *work, study,
            [&] { return signals.Interrupted(); }, [&](int i, int n) { bar.Show(i, n); });
    }
    if (!done) {
        std::fprintf(stderr, "kirameki-cli: the light study was aborted\n");
        return 3;
    }
    const Json figures = StudyJson(o, setup, study);
    if (!o.report.empty()) {
        std::string error;
        if (!WriteReport(o.report, figures, study, error)) {
            std::fprintf(stderr, "kirameki-cli: %s\n", error.c_str());
            return 1;
        }
    }
    if (o.json)
        PrintJson(figures);
    else
        PrintTable(study, setup);
    return 0;
}

}  // namespace

Command AddMetrics(CLI::App& program) {
    CLI::App* app = program.add_subcommand(
        "metrics",
        "light performance of the scene's stone: brightness under ISO and COS lighting, "
        "leakage, head shadow, ASET shares, contrast and fire, face-up and over a tilt range");
    auto o = std::make_shared<MetricsOptions>();
    AddNumber(*app, "--tilt-max", &o->tiltMax, 0.0, 45.0,
              "tilts from -T to +T degrees across the stone (default 30)");
    AddInt(*app, "--tilt-steps", &o->tiltSteps, 1, 91, "tilts measured, odd (default 13)");
    AddNumber(*app, "--head-shadow", &o->headShadow, 0.0, 45.0,
              "half-angle of the observer's head, degrees (default 16)");
    AddInt(*app, "--spectral", &o->spectral, 4, 32,
           "wavelengths of the spectral fire picture (default 8)");
    app->add_flag("--json", o->json, "print the figures as JSON");
    AddText(*app, "--report", &o->report, "DIR",
            "write the ISO, COS, ASET and spectral pictures, the tilt plot and metrics.json");
    o->scene.AddFlags(*app);
    return {app, [o, app] { return RunMetrics(*o, *app); }};
}

}  // namespace kirameki::cli
