#include "cli/scene_arguments.h"

#include <CLI/App.hpp>
#include <CLI/Option.hpp>
#include <CLI/Validators.hpp>
#include <algorithm>
#include <filesystem>
#include <map>
#include <optional>
#include <stdexcept>

#include "model/model_builder.h"
#include "model/stone_choice.h"
#include "model/stone_tables.h"
#include "output/capture_info.h"
#include "render/rotation_steps.h"
#include "scene/program_paths.h"
#include "scene/render_settings.h"

namespace kirameki::cli {

void CheckSettingsFile(const std::string& path, SettingsFileSize size) {
    std::error_code error;
    const auto status = std::filesystem::status(path, error);
    if (!std::filesystem::exists(status))
        throw UsageError("settings file " + path + " does not exist");
    if (std::filesystem::is_directory(status))
        throw UsageError(path + " is a folder, not a settings file");
    if (!std::filesystem::is_regular_file(status))
        throw UsageError(path + " is not a settings file: it is not a regular file");
    const std::uintmax_t bytes = std::filesystem::file_size(path, error);
    if (error)
        return;  // the reading says why
    const auto expected = std::uintmax_t(kSettingsFileSize);
    const bool fits = size == SettingsFileSize::kExact ? bytes == expected : bytes <= expected;
    if (!fits)
        throw UsageError(path + " is not a settings file: it has " + std::to_string(bytes) +
                         " bytes, a settings file has " + std::to_string(kSettingsFileSize));
}

AppSettings LoadSettingsArgument(const std::string& path) {
    CheckSettingsFile(path, SettingsFileSize::kAtMost);
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

namespace {

constexpr int kLowestTurn = 1006, kHighestTurn = 1015, kMostRounds = 100000;

struct Turn {
    int id = 0;
    int rounds = 0;
};

std::optional<Turn> ParseTurn(std::string_view text) {
    const auto colon = text.find(':');
    if (colon == std::string_view::npos)
        return std::nullopt;
    const auto id = ParseInt(text.substr(0, colon));
    const auto rounds = ParseInt(text.substr(colon + 1));
    if (!id || !rounds || *id < kLowestTurn || *id > kHighestTurn || *rounds < 0 ||
        *rounds > kMostRounds)
        return std::nullopt;
    return Turn{*id, *rounds};
}

// A value the parser has checked already.
int WholeNumber(const std::string& text) {
    const auto value = ParseInt(text);
    if (!value)
        throw UsageError("not a whole number: '" + text + "'");
    return *value;
}

}  // namespace

void SceneArguments::AddFlags(CLI::App& app) {
    const std::string group = "Scene flags (applied in the order given)";
    const auto add = [&](CLI::Option* option) {
        option->group(group);
        flags_.emplace_back(option, option->get_name());
    };
    add(AddText(app, "--settings", nullptr, "FILE",
                "start from this settings file instead of the defaults"));
    add(AddText(app, "--position", nullptr, "FILE.gpi",
                "the orientation and scene of a Position-Info record (and the design beside it)"));
    add(AddText(app, "--design", nullptr, "FILE.asc", "a GemCad faceting design as the stone"));
    add(AddInt(app, "--stone", nullptr, 0, kStoneCount - 1,
               "a stone of the table with its cut, colour and index")
            ->type_name("S"));
    add(AddInt(app, "--cut", nullptr, 0, kCutListSize - 1, "an entry of the cut list (not 22)")
            ->type_name("K"));
    add(AddInt(app, "--colour", nullptr, 0, kColourCount - 1, "a colour of the table")
            ->type_name("C"));
    add(AddNumber(app, "--index", nullptr, kMinRefractiveIndex, kMaxRefractiveIndex,
                  "the refractive index")
            ->type_name("N"));
    add(AddInt(app, "--size", nullptr, 32, 512, "the picture size setting")->type_name("PX"));
    add(AddInt(app, "--depth", nullptr, 1, 20, "the recursion depth")->type_name("D"));
    add(app.add_flag("--hq")->description("high quality (the HQ toggle)"));
    add(app.add_option("--fire", "the fire (dispersion)")
            ->type_name("on|off")
            ->check(CLI::Validator(
                [](const std::string& text) -> std::string {
                    return text == "on" || text == "off" ? ""
                                                         : "takes on or off, not '" + text + "'";
                },
                "")));
    add(app.add_option("--turn",
                       "ROUNDS rounds of rotation button ID (1006..1015) in the current mode; "
                       "may be repeated")
            ->type_name("ID:ROUNDS")
            ->check(CLI::Validator(
                [](const std::string& text) -> std::string {
                    return ParseTurn(text)
                               ? ""
                               : "takes ID:ROUNDS with ID 1006..1015, not '" + text + "'";
                },
                "")));
    add(AddInt(app, "--threads", nullptr, 1, 256, "tracer threads (default: one a core)"));
}

std::vector<std::pair<std::string, std::string>> SceneArguments::Given(const CLI::App& app) const {
    std::vector<std::pair<std::string, std::string>> given;
    std::map<const CLI::Option*, std::size_t> seen;
    for (const CLI::Option* option : app.parse_order()) {
        const auto flag = std::find_if(flags_.begin(), flags_.end(),
                                       [&](const auto& entry) { return entry.first == option; });
        if (flag == flags_.end())
            continue;
        const std::size_t occurrence = seen[option]++;
        const auto& results = option->results();
        given.emplace_back(flag->second,
                           occurrence < results.size() ? results[occurrence] : std::string());
    }
    return given;
}

std::vector<std::pair<std::string, std::string>> SceneArguments::Apply(const CLI::App& app) {
    auto given = Given(app);
    for (const auto& [flag, value] : given)
        Take(flag, value);
    return given;
}

void SceneArguments::Take(std::string_view flag, const std::string& value) {
    AppSettings& s = settings;
    if (flag == "--settings") {
        s = LoadSettingsArgument(value);
    } else if (flag == "--stone") {
        StoneChoice choice;
        SelectStone(choice, WholeNumber(value));
        s.stone = choice.stone;
        s.model = choice.model;
        s.stoneColour = choice.colour;
        s.refractiveIndex = choice.refractiveIndex;
    } else if (flag == "--cut") {
        const int cut = WholeNumber(value);
        if (!HasGenerator(cut))
            throw UsageError("--cut 22 is the separator line of the cut list");
        s.model = cut;
    } else if (flag == "--colour") {
        s.stoneColour = WholeNumber(value);
    } else if (flag == "--index") {
        s.refractiveIndex = ParseDouble(value).value_or(s.refractiveIndex);
    } else if (flag == "--size") {
        s.imageSize = WholeNumber(value);
    } else if (flag == "--depth") {
        s.recursionDepth = WholeNumber(value);
    } else if (flag == "--hq") {
        s.highQuality = 1;
    } else if (flag == "--fire") {
        s.fire = value == "on";
    } else if (flag == "--turn") {
        const auto turn = ParseTurn(value);
        if (!turn)
            throw UsageError("--turn takes ID:ROUNDS with ID 1006..1015, not '" + value + "'");
        const RotationKind kind = ClassifyRotation(turn->id);
        const auto step = StepFrame(kind);
        for (int i = 0; i < turn->rounds; ++i) {
            if (kind.light)
                RotationStep(view.light, *step);
            else if (settings.ObjectWiseMode)
                LocalRotationStep(view.object, *step);
            else
                RotationStep(view.view, *step);
        }
        view.LightDirection = LightDirectionOf(view.light);
    } else if (flag == "--position") {
        ReadRecord(value, false);
    } else if (flag == "--design") {
        OpenDesign(value);
    } else if (flag == "--threads") {
        threads = WholeNumber(value);
    }
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
