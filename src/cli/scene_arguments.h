#pragma once

#include <string>

#include "output/app_settings.h"

namespace kirameki::cli {

// The settings file named on the command line; a file that does not exist is bad input
// (the viewer would fall back to the defaults, but here it is most likely a typing error).
AppSettings LoadSettingsArgument(const std::string& path);

}  // namespace kirameki::cli
