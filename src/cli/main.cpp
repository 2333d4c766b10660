#include <exception>
#include <iostream>
#include <string_view>
#include <utility>

#include "cli/commands.h"

namespace {

constexpr const char* kUsage =
    "usage: kirameki-cli <command> [options]\n"
    "commands:\n"
    "  tables                       the stone, colour, cut and polygon colour tables (JSON)\n"
    "  model --cut K (--json | --obj FILE)   the polyhedron of one cut\n"
    "  preview --cut K --out FILE.png [--size PX] [--tilt DEG] [--spin DEG]\n"
    "  render --out FILE.png [--settings FILE] [--stone S] [--cut K] [--colour C] [--index N]\n"
    "         [--size PX] [--depth D] [--hq] [--fire on|off] [--turn ID:ROUNDS]... [--threads N]\n"
    "         [--repeat N]\n";

}  // namespace

int main(int argc, char** argv) {
    using namespace kirameki::cli;
    if (argc < 2) {
        std::cerr << "kirameki-cli: no command given (see kirameki-cli --help)\n";
        return 2;
    }
    const std::string_view command = argv[1];
    Arguments args(argc, argv, 2);
    try {
        using Command = int (*)(Arguments&);
        static const std::pair<std::string_view, Command> kCommands[] = {
            {"tables", RunTables},
            {"model", RunModel},
            {"preview", RunPreview},
            {"render", RunRender},
        };
        for (const auto& [name, run] : kCommands)
            if (command == name) return run(args);
        if (command == "--help" || command == "help") {
            std::cout << kUsage;
            return 0;
        }
        std::cerr << "kirameki-cli: unknown command '" << command
                  << "' (see kirameki-cli --help)\n";
        return 2;
    } catch (const UsageError& e) {
        std::cerr << "kirameki-cli: " << e.what() << "\n";
        return 2;
    } catch (const std::exception& e) {
        std::cerr << "kirameki-cli: " << e.what() << "\n";
        return 1;
    }
}
