#include <filesystem>
#include <iostream>
#include <string>

#include "cli/commands.h"
#include "cli/json_writer.h"
#include "cli/scene_arguments.h"
#include "output/app_settings.h"
#include "output/settings_layout.h"
#include "scene/program_paths.h"

namespace kirameki::cli {

namespace {

template <typename T, std::size_t N>
std::string JsonArray(const std::array<T, N>& values) {
    std::string out = "[";
    for (std::size_t i = 0; i < N; ++i)
        out += (i ? "," : "") + std::to_string(values[i]);
    return out + "]";
}

// One field of the settings file as JSON, by its type.
std::string JsonValue(double value) {
    return JsonNumber(value);
}
std::string JsonValue(std::int32_t value) {
    return std::to_string(value);
}
std::string JsonValue(std::uint8_t value) {
    return std::to_string(value);
}
std::string JsonValue(const PathBuffer& path) {
    return JsonString(PathText(path));
}
std::string JsonValue(const Trim& trim) {
    return JsonArray(
        std::array{trim.top, trim.bottom, trim.left, trim.right, trim.on, trim.lastSetting});
}
template <typename T, std::size_t N>
std::string JsonValue(const std::array<T, N>& values) {
    return JsonArray(values);
}

void Dump(const AppSettings& s) {
    std::string out = "{";
    ForEachSettingsField(s, [&](const char* name, const auto& value) {
        out += (out.size() > 1 ? ",\n" : "\n") + JsonString(name) + ":" + JsonValue(value);
    });
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
