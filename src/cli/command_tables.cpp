#include <CLI/App.hpp>
#include <nlohmann/json.hpp>

#include "cli/commands.h"
#include "cli/json_output.h"
#include "model/stone_tables.h"

namespace kirameki::cli {

namespace {

int RunTables() {
    Json stones = Json::array();
    for (int i = 0; i < kStoneCount; ++i) {
        const StoneRecord& s = Stones()[i];
        stones.push_back({{"index", i},
                          {"english", s.english},
                          {"japanese", s.japanese},
                          {"colour", s.defaultColour},
                          {"cut", s.defaultCut},
                          {"index100", s.index100},
                          {"coefficient", s.coefficient}});
    }
    Json colours = Json::array();
    for (int i = 0; i < kColourCount; ++i) {
        const ColourRecord& c = Colours()[i];
        colours.push_back({{"index", i},
                           {"english", c.english},
                           {"japanese", c.japanese},
                           {"absorption", c.absorption}});
    }
    Json cuts = Json::array();
    for (int i = 0; i < int(CutNames().size()); ++i)
        cuts.push_back({{"index", i},
                        {"english", CutNames()[i].english},
                        {"japanese", CutNames()[i].japanese}});
    Json polygonColours = Json::array();
    for (int i = 0; i < kPolygonColourCount; ++i)
        polygonColours.push_back(PolygonColours()[i]);
    PrintJson({{"stones", stones},
               {"colours", colours},
               {"cuts", cuts},
               {"polygonColours", polygonColours}});
    return 0;
}

}  // namespace

Command AddTables(CLI::App& program) {
    CLI::App* app = program.add_subcommand(
        "tables", "print the stone, colour, cut and polygon colour tables as JSON");
    return {app, RunTables};
}

}  // namespace kirameki::cli
