#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>

namespace kirameki::cli {

// JSON documents keep their keys in the order they were added.
using Json = nlohmann::ordered_json;

// Prints a JSON document and a line end on standard output, on one line unless an indent is
// given. The text is valid JSON whatever the document holds: NaN and infinities are null,
// bytes that are not UTF-8 become U+FFFD, and numbers have the fewest digits that read back
// to the same value. A failed write (a closed pipe, a full disk) throws std::runtime_error
// with one line.
void PrintJson(const Json& document, int indent = -1);

// The text with every byte that is not UTF-8 replaced by U+FFFD, as the JSON output has it:
// for names that go into files whose text must be UTF-8 (the glTF's JSON).
std::string ValidUtf8(const std::string& text);

}  // namespace kirameki::cli
