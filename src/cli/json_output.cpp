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

std::string ValidUtf8(const std::string& text) {
    const std::string quoted =
        Json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
    return Json::parse(quoted).get<std::string>();
}

}  // namespace kirameki::cli
