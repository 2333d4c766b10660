#include <charconv>
#include <cmath>

#include "model/design.h"

namespace kirameki {

namespace {

// The shortest text that reads back to the same double, with a decimal point for the
// measures so that they read as measures.
std::string Exact(double value, bool measure) {
    char text[64];
    const auto [end, error] = std::to_chars(text, text + sizeof text, value);
    std::string out(text, error == std::errc() ? end : text);
    if (measure && out.find_first_of(".e") == std::string::npos)
        out += ".0";
    return out;
}

}  // namespace

std::string WriteDesignText(const Design& design) {
    // Line ends as the format's home platform writes them; every reader takes them.
    const char* const kEnd = "\r\n";
    std::string out = std::string("GemCad 5.0") + kEnd;
    out += "g " + std::to_string(design.gear) + " " + Exact(design.offset, true) + kEnd;
    out += "y " + std::to_string(design.symmetry) + (design.mirror ? " y" : " n") + kEnd;
    if (design.index > 0.0)
        out += "I " + Exact(design.index, true) + kEnd;
    for (const std::string& title : design.titles)
        out += "H " + title + kEnd;
    for (const std::string& note : design.footnotes)
        out += "F " + note + kEnd;
    for (const DesignTier& tier : design.tiers) {
        // A culet is the pavilion's angle 0, written -0.
        out += "a " + std::string(tier.below ? "-" : "") + Exact(std::abs(tier.angle), true) + " " +
               Exact(tier.distance, true);
        for (std::size_t i = 0; i < tier.indices.size(); ++i) {
            out += " " + Exact(tier.indices[i], false);
            if (i < tier.names.size() && !tier.names[i].empty())
                out += " n " + tier.names[i];
        }
        if (!tier.instruction.empty())
            out += " G " + tier.instruction;
        out += kEnd;
    }
    return out;
}

}  // namespace kirameki
