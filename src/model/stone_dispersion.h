#pragma once

#include <optional>

namespace kirameki {

// The B-G dispersion (n at 430.8 nm minus n at 686.7 nm) of the stones whose real material
// is known: diamond 0.044, sapphire 0.018, topaz and emerald 0.014, rock crystal (quartz)
// 0.013, glass 0.010. Nothing for a stone of the table that is not a real material; the
// user's value stands for it.
std::optional<double> KnownDispersion(int stone);

// What a stone of unknown material disperses when the user gives no value.
inline constexpr double kDefaultDispersion = 0.020;

}  // namespace kirameki
