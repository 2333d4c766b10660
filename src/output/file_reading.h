#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace kirameki {

struct FileBytes {
    enum class Outcome { kRead, kMissing, kFailed };
    Outcome outcome = Outcome::kFailed;
    std::vector<std::uint8_t> bytes;  // at most the limit asked for
    bool longer = false;              // the file holds more than the limit
    std::string error;                // why it could not be read (missing or failed)
};

// Reads at most `limit` bytes of a regular file. Anything else at the path (a FIFO, a device,
// a folder, a link to one of them) is refused at once rather than read: a FIFO would block
// for ever and /dev/zero never ends.
FileBytes ReadRegularFile(const std::string& path, std::size_t limit);

}  // namespace kirameki
