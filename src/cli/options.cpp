#include "cli/options.h"

#include <CLI/App.hpp>
#include <CLI/Option.hpp>
#include <CLI/Validators.hpp>
#include <charconv>
#include <cmath>

#include "output/atomic_file.h"

namespace kirameki::cli {

namespace {

// Numbers shown without trailing zeros: "0.1", "10000", "1.3".
std::string Shown(double value) {
    char text[32];
    const auto result = std::to_chars(text, text + sizeof text, value);
    return {text, result.ptr};
}

CLI::Validator IntRange(int low, int high) {
    return {[low, high](const std::string& text) -> std::string {
                const std::optional<int> value = ParseInt(text);
                if (value && *value >= low && *value <= high)
                    return {};
                return "takes a whole number from " + std::to_string(low) + " to " +
                       std::to_string(high) + ", not '" + text + "'";
            },
            std::to_string(low) + ".." + std::to_string(high)};
}

CLI::Validator NumberRange(double low, double high) {
    return {[low, high](const std::string& text) -> std::string {
                const std::optional<double> value = ParseDouble(text);
                if (value && *value >= low && *value <= high)
                    return {};
                return "takes a number from " + Shown(low) + " to " + Shown(high) + ", not '" +
                       text + "'";
            },
            Shown(low) + ".." + Shown(high)};
}

}  // namespace

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

CLI::Option* AddInt(CLI::App& app, const std::string& name, int* value, int low, int high,
                    const std::string& description) {
    CLI::Option* option = value != nullptr ? app.add_option(name, *value, description)
                                           : app.add_option(name, description);
    return option->type_name("N")->check(IntRange(low, high));
}

CLI::Option* AddNumber(CLI::App& app, const std::string& name, double* value, double low,
                       double high, const std::string& description) {
    CLI::Option* option = value != nullptr ? app.add_option(name, *value, description)
                                           : app.add_option(name, description);
    return option->type_name("X")->check(NumberRange(low, high));
}

CLI::Option* AddText(CLI::App& app, const std::string& name, std::string* value,
                     const std::string& kind, const std::string& description) {
    CLI::Option* option = value != nullptr ? app.add_option(name, *value, description)
                                           : app.add_option(name, description);
    return option->type_name(kind);
}

void RefuseStandardOutput(const std::string& flag, const std::string& path) {
    if (path == kStandardOutput)
        throw UsageError(flag + " needs a file name: files are written beside it");
}

}  // namespace kirameki::cli
