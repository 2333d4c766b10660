#pragma once

#include <functional>

namespace CLI {
class App;
}  // namespace CLI

namespace kirameki::cli {

// A subcommand of the program: its options are parsed into state that its runner holds, and
// the runner returns the exit status (0 success, 2 bad usage or input, 1 other failure).
struct Command {
    CLI::App* app = nullptr;
    std::function<int()> run;
};

Command AddTables(CLI::App& program);
Command AddModel(CLI::App& program);
Command AddPreview(CLI::App& program);
Command AddRender(CLI::App& program);
Command AddSettings(CLI::App& program);
Command AddCapture(CLI::App& program);
Command AddGif(CLI::App& program);
Command AddDesign(CLI::App& program);
Command AddMetrics(CLI::App& program);
Command AddBatch(CLI::App& program);

}  // namespace kirameki::cli
