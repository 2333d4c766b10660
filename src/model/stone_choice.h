#pragma once

#include <optional>
#include <string_view>

namespace kirameki {

// The user's current stone choice as the main window's lists and the index field hold it.
struct StoneChoice {
    int stone = 0;
    int model = 0;  // entry of the cut list
    int colour = 0;
    double refractiveIndex = 2.42;
};

inline constexpr double kMinRefractiveIndex = 1.0;
inline constexpr double kMaxRefractiveIndex = 3.0;
inline constexpr std::string_view kRefractiveIndexRangeMessage =
    "Refractive index must be set within the range of 1.00 to 3.00.";

// Choosing a stone sets its default cut and colour and its refractive index. An index outside
// the stone table changes nothing and answers false.
bool SelectStone(StoneChoice& choice, int stone);

// Choosing a cut: the separator line (and anything outside the list) is refused, the model
// stays and the list must be set back to it. Answers whether the model must be rebuilt.
bool SelectCut(StoneChoice& choice, int entry);

// Parses the refractive index field as the main window reads it back; nullopt when the text
// is no number at all.
std::optional<double> ParseRefractiveIndex(std::string_view text);

// The field's read-back: below 1.0 becomes 1.0, above 3.0 becomes 3.0.
double ClampRefractiveIndex(double index);

// The check before a render or a capture: true when 1.00 <= index <= 3.00 (both allowed).
bool RefractiveIndexInRange(double index);

}  // namespace kirameki
