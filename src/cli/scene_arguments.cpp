#include "cli/scene_arguments.h"

#include <filesystem>

#include "cli/cli_arguments.h"

namespace kirameki::cli {

AppSettings LoadSettingsArgument(const std::string& path) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error))
        throw UsageError("settings file " + path + " does not exist");
    AppSettings settings;
    LoadSettings(path, settings, {});
    return settings;
}

}  // namespace kirameki::cli
