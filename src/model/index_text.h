#pragma once

#include <string_view>

namespace kirameki {

// The refractive-index field read as a C number parse reads it: leading blanks and a sign,
// then the longest number at the start; the rest of the text is ignored ("2.5x" is 2.5)
// and text without a number at the start is 0 (which the read-back then clamps). The parse
// is the same under every locale. Never NaN.
double LeadingNumber(std::string_view text);

}  // namespace kirameki
