#pragma once

#include <cstdio>
#include <functional>
#include <string>

namespace kirameki {

// Writes a file through a temporary file beside it, renamed over the target only when the
// writer succeeded and the data reached the disk, so that a crash or a failed write never
// leaves half a file and never loses the old one. On failure error holds one clear line.
bool WriteFileAtomically(const std::string& path, const std::function<bool(std::FILE*)>& writer,
                         std::string& error);

}  // namespace kirameki
