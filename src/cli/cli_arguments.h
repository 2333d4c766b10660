#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace kirameki::cli {

// Bad usage or bad input: the message is printed as one line and the exit status is 2.
struct UsageError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// The words after the subcommand, taken one flag at a time.
class Arguments {
  public:
    Arguments(int argc, char** argv, int first);

    bool Done() const { return next_ >= words_.size(); }
    std::string_view Flag();                   // the next word, which must start with "--"
    std::string Value(std::string_view flag);  // the word after a flag
    int IntValue(std::string_view flag, int low, int high);
    double DoubleValue(std::string_view flag, double low, double high);

  private:
    std::vector<std::string> words_;
    std::size_t next_ = 0;
};

std::optional<int> ParseInt(std::string_view text);
std::optional<double> ParseDouble(std::string_view text);

}  // namespace kirameki::cli
