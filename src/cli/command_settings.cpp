#include <filesystem>
#include <iostream>
#include <string>

#include "scene/program_paths.h"
#include "cli/commands.h"
#include "cli/json_writer.h"
#include "cli/scene_arguments.h"
#include "output/app_settings.h"

namespace kirameki::cli {

namespace {

template <typename T, std::size_t N>
std::string JsonArray(const std::array<T, N>& values) {
    std::string out = "[";
    for (std::size_t i = 0; i < N; ++i)
        out += (i ? "," : "") + std::to_string(values[i]);
    return out + "]";
}

void Dump(const AppSettings& s) {
    std::string out = "{";
    const auto field = [&](const char* name, const std::string& value) {
        out += (out.size() > 1 ? ",\n" : "\n") + JsonString(name) + ":" + value;
    };
    const auto number = [&](const char* name, long value) { field(name, std::to_string(value)); };
    number("polygonColour", s.polygonColour);
    number("stone", s.stone);
    number("model", s.model);
    number("stoneColour", s.stoneColour);
    field("refractiveIndex", JsonNumber(s.refractiveIndex));
    number("reserved1", s.reserved1);
    number("showTitleWindow", s.showTitleWindow);
    number("renderWindowTopMost", s.renderWindowTopMost);
    number("rotationSpeed", s.rotationSpeed);
    number("recursionDepth", s.recursionDepth);
    number("targetPicture", s.targetPicture);
    field("screenShotFolder", JsonString(PathText(s.screenShotFolder)));
    number("screenShotOption", s.screenShotOption);
    field("captureFolder", JsonString(PathText(s.captureFolder)));
    number("captureFrames", s.captureFrames);
    number("gifOption1", s.gifOption1);
    number("gifOption2", s.gifOption2);
    number("ObjectWiseMode", s.ObjectWiseMode);
    number("IncrementalViewMode", s.IncrementalViewMode);
    number("option4", s.option4);
    number("option5", s.option5);
    number("option6", s.option6);
    number("option7", s.option7);
    field("backColour", JsonArray(s.backColour));
    number("reserved2", s.reserved2);
    number("mainLightVolume", s.mainLightVolume);
    number("backLightVolume", s.backLightVolume);
    number("fillLightVolume", s.fillLightVolume);
    number("lightOption", s.lightOption);
    number("separateRenderWindow", s.separateRenderWindow);
    number("imageSize", s.imageSize);
    field("trimming", JsonArray(s.trimming));
    field("modelParameters", JsonArray(s.modelParameters));
    std::cout << out << "\n}\n";
}

}  // namespace

int RunSettings(Arguments& args) {
    std::string file, action;
    while (!args.Done()) {
        const std::string_view flag = args.Flag();
        if (flag == "--file") {
            file = args.Value(flag);
        } else if (flag == "--dump" || flag == "--write-defaults" || flag == "--rewrite") {
            if (!action.empty())
                throw UsageError("settings takes one of --dump, --write-defaults, --rewrite");
            action = flag;
        } else {
            throw UsageError("settings: unknown option " + std::string(flag));
        }
    }
    if (file.empty() || action.empty())
        throw UsageError(
            "usage: kirameki-cli settings --file FILE (--dump | --write-defaults | --rewrite)");
    AppSettings settings;
    std::string error;
    if (action == "--write-defaults") {
        const ProgramPaths paths = CurrentProgramPaths();
        LoadDefaults(settings, {paths.screenShotsFolder, paths.capturesFolder});
    } else {
        settings = LoadSettingsArgument(file);
        if (action == "--dump") {
            Dump(settings);
            return 0;
        }
    }
    if (!SaveSettings(file, settings, error)) {
        std::cerr << "kirameki-cli: " << error << "\n";
        return 1;
    }
    return 0;
}

}  // namespace kirameki::cli
