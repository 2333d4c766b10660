#include <iostream>
#include <string>

#include "cli/commands.h"
#include "cli/json_writer.h"
#include "model/stone_tables.h"

namespace kirameki::cli {

namespace {

std::string Triple(const std::array<double, 3>& values) {
    return "[" + JsonNumber(values[0]) + "," + JsonNumber(values[1]) + "," + JsonNumber(values[2]) +
           "]";
}

}  // namespace

int RunTables(Arguments& args) {
    if (!args.Done())
        throw UsageError("tables takes no options");
    std::string out = "{\"stones\":[";
    for (int i = 0; i < kStoneCount; ++i) {
        const StoneRecord& s = Stones()[i];
        out += (i ? ",\n" : "\n") + std::string("{\"index\":") + std::to_string(i) +
               ",\"english\":" + JsonString(s.english) + ",\"japanese\":" + JsonString(s.japanese) +
               ",\"colour\":" + std::to_string(s.defaultColour) +
               ",\"cut\":" + std::to_string(s.defaultCut) +
               ",\"index100\":" + std::to_string(s.index100) +
               ",\"coefficient\":" + JsonNumber(s.coefficient) + "}";
    }
    out += "],\n\"colours\":[";
    for (int i = 0; i < kColourCount; ++i) {
        const ColourRecord& c = Colours()[i];
        out += (i ? ",\n" : "\n") + std::string("{\"index\":") + std::to_string(i) +
               ",\"english\":" + JsonString(c.english) + ",\"japanese\":" + JsonString(c.japanese) +
               ",\"absorption\":" + Triple(c.absorption) + "}";
    }
    out += "],\n\"cuts\":[";
    for (int i = 0; i < int(CutNames().size()); ++i) {
        out += (i ? ",\n" : "\n") + std::string("{\"index\":") + std::to_string(i) +
               ",\"english\":" + JsonString(CutNames()[i].english) +
               ",\"japanese\":" + JsonString(CutNames()[i].japanese) + "}";
    }
    out += "],\n\"polygonColours\":[";
    for (int i = 0; i < kPolygonColourCount; ++i)
        out += (i ? "," : "") + Triple(PolygonColours()[i]);
    out += "]}\n";
    std::cout << out;
    return 0;
}

}  // namespace kirameki::cli
