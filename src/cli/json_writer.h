#pragma once

#include <string>
#include <string_view>

namespace kirameki::cli {

// Minimal JSON text building: strings escaped, doubles with 17 significant digits so that
// they read back to the same value.
std::string JsonString(std::string_view text);
std::string JsonNumber(double value);

}  // namespace kirameki::cli
