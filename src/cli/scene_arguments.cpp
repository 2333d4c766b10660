#include "cli/scene_arguments.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>

#include "model/model_builder.h"
#include "model/stone_choice.h"
#include "model/stone_tables.h"
#include "output/capture_info.h"
#include "render/rotation_steps.h"
#include "scene/program_paths.h"
#include "scene/render_settings.h"

namespace kirameki::cli {

AppSettings LoadSettingsArgument(const std::string& path) {
    std::error_code error;
    if (!std::filesystem::exists(path, error))
        throw UsageError("settings file " + path + " does not exist");
    AppSettings settings;
    // A file that is there but cannot be read is never taken for a short one.
    if (const SettingsLoad load = LoadSettings(path, settings, {}); !load.error.empty())
        throw std::runtime_error(load.error);
    return settings;
}

AppSettings ProgramSettings(const AppSettings& fallback) {
    const std::string path = CurrentProgramPaths().settingsFile;
    std::error_code error;
    return std::filesystem::exists(path, error) ? LoadSettingsArgument(path) : fallback;
}

SceneArguments::SceneArguments() {
    LoadDefaults(settings, {});
}

bool SceneArguments::Take(std::string_view flag, Arguments& args) {
    AppSettings& s = settings;
    if (flag == "--settings") {
        s = LoadSettingsArgument(args.Value(flag));
    } else if (flag == "--stone") {
        StoneChoice choice;
        SelectStone(choice, args.IntValue(flag, 0, kStoneCount - 1));
        s.stone = choice.stone;
        s.model = choice.model;
        s.stoneColour = choice.colour;
        s.refractiveIndex = choice.refractiveIndex;
    } else if (flag == "--cut") {
        const int cut = args.IntValue(flag, 0, kCutListSize - 1);
        if (!HasGenerator(cut))
            throw UsageError("--cut 22 is the separator line of the cut list");
        s.model = cut;
    } else if (flag == "--colour") {
        s.stoneColour = args.IntValue(flag, 0, kColourCount - 1);
    } else if (flag == "--index") {
        s.refractiveIndex = args.DoubleValue(flag, kMinRefractiveIndex, kMaxRefractiveIndex);
    } else if (flag == "--size") {
        s.imageSize = args.IntValue(flag, 32, 512);
    } else if (flag == "--depth") {
        s.recursionDepth = args.IntValue(flag, 1, 20);
    } else if (flag == "--hq") {
        s.highQuality = 1;
    } else if (flag == "--fire") {
        const std::string value = args.Value(flag);
        if (value != "on" && value != "off")
            throw UsageError("--fire takes on or off");
        s.fire = value == "on";
    } else if (flag == "--turn") {
        const std::string value = args.Value(flag);
        const auto colon = value.find(':');
        const auto id = ParseInt(std::string_view(value).substr(0, colon));
        const auto rounds = colon == std::string::npos
                                ? std::optional<int>()
                                : ParseInt(std::string_view(value).substr(colon + 1));
        if (!id || !rounds || *id < 1006 || *id > 1015 || *rounds < 0 || *rounds > 100000)
            throw UsageError("--turn takes ID:ROUNDS with ID 1006..1015, not '" + value + "'");
        const RotationKind kind = ClassifyRotation(*id);
        const auto step = StepFrame(kind);
        for (int i = 0; i < *rounds; ++i) {
            if (kind.light)
                RotationStep(view.light, *step);
            else if (settings.ObjectWiseMode)
                LocalRotationStep(view.object, *step);
            else
                RotationStep(view.view, *step);
        }
        view.LightDirection = LightDirectionOf(view.light);
    } else if (flag == "--position") {
        ReadRecord(args.Value(flag), false);
    } else if (flag == "--design") {
        OpenDesign(args.Value(flag));
    } else if (flag == "--threads") {
        threads = args.IntValue(flag, 1, 256);
    } else {
        return false;
    }
    return true;
}

RenderParameters SceneArguments::Parameters() const {
    const AppSettings& s = settings;
    const std::string problem = SceneProblem(s);
    if (!problem.empty())
        throw UsageError(problem);
    RenderParameters p = RenderParametersFor(s);
    p.threads = threads;
    return p;
}

void SceneArguments::ReadRecord(const std::string& path, bool headerOnly) {
    SceneState scene = Scene();
    const RecordRead read = ReadCaptureInfo(path, scene, headerOnly);
    if (!read.opened)
        throw UsageError(read.error);
    if (!read.refused.empty())
        throw UsageError(path + ": " + read.refused);
    std::error_code missing;
    if (!headerOnly && std::filesystem::exists(DesignBeside(path), missing))
        OpenDesign(DesignBeside(path));
}

void SceneArguments::OpenDesign(const std::string& path) {
    auto design = std::make_shared<kirameki::OpenDesign>();
    std::string error;
    if (!OpenDesignFile(path, *design, error))
        throw UsageError(error);
    if (RefractiveIndexInRange(design->design.index))
        settings.refractiveIndex = design->design.index;
    stone.design = std::move(design);
}

}  // namespace kirameki::cli
