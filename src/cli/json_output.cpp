#include "cli/json_output.h"

#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>

#include "output/atomic_file.h"

namespace kirameki::cli {

void PrintJson(const Json& document, int indent) {
    const std::string text =
        document.dump(indent, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
    if (std::string error; !WriteStandardOutput(text, error))
        throw std::runtime_error(error);
}

}  // namespace kirameki::cli
