#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace kirameki::cli {

// Bad usage or bad input: the message is printed as one line and the exit status is 2.
struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

std::optional<int> ParseInt(std::string_view text);
std::optional<double> ParseDouble(std::string_view text);

// Options whose values are checked as they are parsed, so that a bad value is a usage error
// naming the option. The value is stored when the option is given (the last one counts);
// without a target the values stay in the option, each occurrence in order.
CLI::Option* AddInt(CLI::App& app, const std::string& name, int* value, int low, int high,
                    const std::string& description);
CLI::Option* AddNumber(CLI::App& app, const std::string& name, double* value, double low,
                       double high, const std::string& description);
CLI::Option* AddText(CLI::App& app, const std::string& name, std::string* value,
                     const std::string& kind, const std::string& description);

// The file name that means standard output ("-"), refused where a real file is needed (a
// record beside which other files go).
void RefuseStandardOutput(const std::string& flag, const std::string& path);

}  // namespace kirameki::cli
