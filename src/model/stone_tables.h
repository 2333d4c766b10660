#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace kirameki {

struct StoneRecord {
    std::string_view english;
    std::string_view japanese;
    std::int32_t defaultColour;
    std::int32_t defaultCut;  // entry of the cut list
    std::int32_t index100;    // refractive index in hundredths
    double coefficient;       // dispersion spread handed to the tracer
};

struct ColourRecord {
    std::string_view english;
    std::string_view japanese;
    std::array<double, 3> absorption;  // red, green, blue; 0 lets the channel pass
};

struct CutName {
    std::string_view english;
    std::string_view japanese;
};

constexpr int kStoneCount = 8;
constexpr int kColourCount = 11;
constexpr int kPolygonColourCount = 9;  // the menu offers the first eight

// The fixed tables, filled once. The last stone copies the index and coefficient of
// "Vorane" rather than carrying literals of its own, so that it always tracks that record.
const std::array<StoneRecord, kStoneCount>& Stones();
const std::array<ColourRecord, kColourCount>& Colours();
const std::array<CutName, 28>& CutNames();
const std::array<std::array<double, 3>, kPolygonColourCount>& PolygonColours();

bool IsStoneIndex(int stone);
bool IsColourIndex(int colour);
bool IsPolygonColourIndex(int polygonColour);

}  // namespace kirameki
