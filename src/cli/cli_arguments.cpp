#include "cli/cli_arguments.h"

#include <charconv>
#include <cmath>

namespace kirameki::cli {

Arguments::Arguments(int argc, char** argv, int first) {
    for (int i = first; i < argc; ++i)
        words_.emplace_back(argv[i]);
}

std::string_view Arguments::Flag() {
    const std::string& word = words_.at(next_++);
    if (word.rfind("--", 0) != 0)
        throw UsageError("unexpected argument '" + word + "'");
    return word;
}

std::string Arguments::Value(std::string_view flag) {
    if (Done())
        throw UsageError(std::string(flag) + " needs a value");
    return words_[next_++];
}

int Arguments::IntValue(std::string_view flag, int low, int high) {
    const std::string text = Value(flag);
    const std::optional<int> value = ParseInt(text);
    if (!value || *value < low || *value > high)
        throw UsageError(std::string(flag) + " takes a whole number from " + std::to_string(low) +
                         " to " + std::to_string(high) + ", not '" + text + "'");
    return *value;
}

double Arguments::DoubleValue(std::string_view flag, double low, double high) {
    const std::string text = Value(flag);
    const std::optional<double> value = ParseDouble(text);
    if (!value || *value < low || *value > high)
        throw UsageError(std::string(flag) + " takes a number from " + std::to_string(low) +
                         " to " + std::to_string(high) + ", not '" + text + "'");
    return *value;
}

std::optional<int> ParseInt(std::string_view text) {
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return value;
}

std::optional<double> ParseDouble(std::string_view text) {
    double value = 0.0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

}  // namespace kirameki::cli
