#include <CLI/App.hpp>
#include <CLI/Option.hpp>
#include <iostream>
#include <nlohmann/json.hpp>
#include <string>

#include "cli/commands.h"
#include "cli/json_output.h"
#include "cli/options.h"
#include "cli/scene_arguments.h"
#include "output/app_settings.h"
#include "output/settings_layout.h"
#include "scene/program_paths.h"

namespace kirameki::cli {

namespace {

struct SettingsOptions {
    std::string file;
    bool dump = false, writeDefaults = false, rewrite = false;
};

// One field of the settings file as JSON, by its type.
Json JsonValue(double value) {
    return value;
}
Json JsonValue(std::int32_t value) {
    return value;
}
Json JsonValue(std::uint8_t value) {
    return value;
}
Json JsonValue(const PathBuffer& path) {
    return PathText(path);
}
Json JsonValue(const Trim& trim) {
    return {trim.top, trim.bottom, trim.left, trim.right, trim.on, trim.lastSetting};
}
template <typename T, std::size_t N>
Json JsonValue(const std::array<T, N>& values) {
    Json array = Json::array();
    for (const T& value : values)
        array.push_back(JsonValue(value));
    return array;
}

void Dump(const AppSettings& s) {
    Json document = Json::object();
    ForEachSettingsField(
        s, [&](const char* name, const auto& value) { document[name] = JsonValue(value); });
    PrintJson(document, 1);
}

int RunSettings(const SettingsOptions& o) {
    if (int(o.dump) + int(o.writeDefaults) + int(o.rewrite) != 1)
        throw UsageError("settings takes one of --dump, --write-defaults, --rewrite");
    AppSettings settings;
    if (o.writeDefaults) {
        const ProgramPaths paths = CurrentProgramPaths();
        LoadDefaults(settings, {paths.screenShotsFolder, paths.capturesFolder});
    } else {
        // Only a whole settings file is shown or written back: a rewrite of anything else
        // would replace it with settings.
        CheckSettingsFile(o.file, SettingsFileSize::kExact);
        settings = LoadSettingsArgument(o.file);
        if (o.dump) {
            Dump(settings);
            return 0;
        }
    }
    if (std::string error; !SaveSettings(o.file, settings, error)) {
        std::cerr << "kirameki-cli: " << error << "\n";
        return 1;
    }
    return 0;
}

}  // namespace

Command AddSettings(CLI::App& program) {
    CLI::App* app = program.add_subcommand(
        "settings", "show, create or rewrite the viewer's 729-byte settings file");
    auto o = std::make_shared<SettingsOptions>();
    AddText(*app, "--file", &o->file, "FILE",
            "the settings file ('-': standard output for "
            "--write-defaults)")
        ->required();
    app->add_flag("--dump", o->dump, "print every field by its name as JSON");
    app->add_flag("--write-defaults", o->writeDefaults, "write a file of the default settings");
    app->add_flag("--rewrite", o->rewrite, "read the file and write it back");
    return {app, [o] { return RunSettings(*o); }};
}

}  // namespace kirameki::cli
