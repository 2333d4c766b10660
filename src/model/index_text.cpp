#include "model/index_text.h"

#include <charconv>
#include <cmath>

namespace kirameki {

double LeadingNumber(std::string_view text) {
    const auto isSpace = [](char c) {
        return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v';
    };
    while (!text.empty() && isSpace(text.front()))
        text.remove_prefix(1);
    // from_chars takes a minus but not a plus; strtod takes both.
    if (text.size() > 1 && text.front() == '+' && text[1] != '-' && text[1] != '+')
        text.remove_prefix(1);
    double value = 0.0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        // Too large a magnitude reads as infinity, too small as zero, as strtod answers.
        const std::string_view number(text.data(), std::size_t(result.ptr - text.data()));
        const auto e = number.find_first_of("eE");
        const bool tiny =
            e != std::string_view::npos && e + 1 < number.size() && number[e + 1] == '-';
        const double sign = text.front() == '-' ? -1.0 : 1.0;
        return tiny ? sign * 0.0 : sign * HUGE_VAL;
    }
    if (result.ec != std::errc() || std::isnan(value))
        return 0.0;
    return value;
}

}  // namespace kirameki
