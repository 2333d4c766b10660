#include "model/stone_dispersion.h"

#include <string_view>

#include "model/stone_tables.h"

namespace kirameki {

std::optional<double> KnownDispersion(int stone) {
    if (!IsStoneIndex(stone))
        return std::nullopt;
    struct Known {
        std::string_view english;
        double dispersion;
    };
    constexpr Known kKnown[] = {{"Diamond", 0.044}, {"Sapphire", 0.018}, {"Topaz", 0.014},
                                {"Emerald", 0.014}, {"Crystal", 0.013},  {"Glass", 0.010}};
    const std::string_view name = Stones()[std::size_t(stone)].english;
    for (const Known& known : kKnown)
        if (known.english == name)
            return known.dispersion;
    return std::nullopt;
}

}  // namespace kirameki
