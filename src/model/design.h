#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kirameki {

// One tier of a faceting design: facets cut at one angle and depth at several positions of
// the index gear.
struct DesignTier {
    // Degrees between the facet and the girdle plane: 0 the table, +-90 the girdle, negative
    // on the pavilion. A culet is written as angle -0 (below) with its distance.
    double angle = 0.0;
    bool below = false;  // on the pavilion side (negative angle, -0, or 0 with a negative distance)
    double distance = 0.0;  // from the stone's centre along the outward normal, >= 0 once read
    std::vector<double> indices;  // gear positions; fractional ones occur
    // Facet names: names[i] names indices[i] (empty: unnamed).
    std::vector<std::string> names;
    std::string instruction;  // the cutting instruction, "G" text
    int line = 0;             // where the tier starts in its file
};

// A faceting design as the text format keeps it.
struct Design {
    std::vector<std::string> titles;     // "H" lines; the first is usually number and name
    std::vector<std::string> footnotes;  // "F" lines
    int gear = 96;        // teeth of the index gear; negative: indices run the other way round
    double offset = 0.0;  // degrees added to every azimuth
    int symmetry = 0;     // rotational symmetry, for information
    bool mirror = false;  // mirror symmetry, for information
    double index = 0.0;   // the refractive index the design was made for (0: not given)
    std::vector<DesignTier> tiers;
};

struct DesignRead {
    bool ok = false;
    std::string error;  // "line 7: ...": the first thing that makes the file unusable
    Design design;
};

// Reads a design leniently: UTF-8 (with or without a byte-order mark) or Windows-1252; CRLF,
// LF or lone CR line ends; keywords glued to their values; continuation lines of a tier. A
// file that is not a design says which line is wrong and why.
DesignRead ReadDesignText(std::string_view bytes);

// The design as text that ReadDesignText reads back to the same design.
std::string WriteDesignText(const Design& design);

// The azimuth of an index in degrees, with the gear's direction and offset.
double IndexAzimuth(const Design& design, double index);

}  // namespace kirameki
