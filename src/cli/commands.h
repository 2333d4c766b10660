#pragma once

#include "cli/cli_arguments.h"

namespace kirameki::cli {

// Each subcommand returns the exit status: 0 success, 2 bad usage or input, 1 other failure.
int RunTables(Arguments& args);
int RunModel(Arguments& args);
int RunPreview(Arguments& args);
int RunRender(Arguments& args);
int RunSettings(Arguments& args);
int RunCapture(Arguments& args);
int RunGif(Arguments& args);
int RunDesign(Arguments& args);
int RunBatch(Arguments& args);

}  // namespace kirameki::cli
