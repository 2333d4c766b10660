#include <exception>
#include <iostream>
#include <string_view>
#include <utility>

#include "cli/commands.h"

namespace {

constexpr const char* kUsage =
    "usage: kirameki-cli <command> [options]\n"
    "  tables                          the stone, colour, cut and polygon colour tables (JSON)\n"
    "  model --cut K [--settings FILE] [--stone S] [--colour C]\n"
    "        (--json | --obj FILE | --stl FILE [--girdle MM] | --glb FILE [--girdle MM])\n"
    "  preview --cut K --out FILE.png [--size PX] [--tilt DEG] [--spin DEG] [--polygon-colour N]\n"
    "  settings --file FILE (--dump | --write-defaults | --rewrite)\n"
    "  render --out FILE [--format 1..7] [--position-info] [scene flags] [--repeat N]\n"
    "  capture --sqi FILE.sqi [--frames N] [scene flags]\n"
    "  capture --sqi FILE.sqi --resume [--check-existence] [--settings FILE] [--depth D]\n"
    "  gif --sqi FILE.sqi --out FILE [--delay T] [--clockwise] [--settings FILE]\n"
    "      [--webp [--quality Q]]       animated GIF, or WebP (lossless unless Q is given)\n"
    "  design --in FILE.asc (--json | --out FILE.asc) | --cut K --out FILE.asc [--gear N]\n"
    "  batch --designs FOLDER|LIST --out FOLDER [--job render|turntable] [--shard I/N]\n"
    "        [--frames N] [-- render or capture flags]   one JSON line per design\n"
    "scene flags: --settings FILE --position FILE.gpi --design FILE.asc --stone S --cut K\n"
    "             --colour C --index N"
    " --size PX --depth D --hq --fire on|off --turn ID:ROUNDS --threads N\n";

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
            {"tables", RunTables}, {"model", RunModel},       {"preview", RunPreview},
            {"render", RunRender}, {"settings", RunSettings}, {"capture", RunCapture},
            {"gif", RunGif},       {"design", RunDesign},     {"batch", RunBatch},
        };
        for (const auto& [name, run] : kCommands)
            if (command == name)
                return run(args);
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
