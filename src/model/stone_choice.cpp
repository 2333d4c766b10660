#include "model/stone_choice.h"

#include <charconv>
#include <cmath>

#include "model/model_builder.h"
#include "model/stone_tables.h"

namespace kirameki {

bool SelectStone(StoneChoice& choice, int stone) {
    if (!IsStoneIndex(stone))
        return false;
    const StoneRecord& record = Stones()[stone];
    choice.stone = stone;
    choice.model = record.defaultCut;
    choice.colour = record.defaultColour;
    choice.refractiveIndex = record.index100 / 100.0;
    return true;
}

bool SelectCut(StoneChoice& choice, int entry) {
    if (!HasGenerator(entry))
        return false;
    choice.model = entry;
    return true;
}

std::optional<double> ParseRefractiveIndex(std::string_view text) {
    // from_chars ignores the locale, so "2.42" reads the same under every language.
    const auto isSpace = [](char c) { return c == ' ' || c == '\t'; };
    while (!text.empty() && isSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isSpace(text.back()))
        text.remove_suffix(1);
    if (!text.empty() && text.front() == '+')
        text.remove_prefix(1);
    double value = 0.0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

double ClampRefractiveIndex(double index) {
    if (index < kMinRefractiveIndex)
        return kMinRefractiveIndex;
    if (index > kMaxRefractiveIndex)
        return kMaxRefractiveIndex;
    return index;
}

bool RefractiveIndexInRange(double index) {
    return index >= kMinRefractiveIndex && index <= kMaxRefractiveIndex;
}

}  // namespace kirameki
