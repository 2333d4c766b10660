#include "output/messages.h"

namespace kirameki::messages {

std::string Format(const char* text, const std::string& argument) {
    std::string out = text;
    const std::size_t at = out.find("%s");
    if (at != std::string::npos)
        out.replace(at, 2, argument);
    return out;
}

}  // namespace kirameki::messages
