#pragma once

#include <cstdio>
#include <functional>
#include <string>

namespace kirameki {

// Writes a file through a temporary file beside it, put in the target's place only when the
// writer succeeded and the data reached the disk, so that a crash or a failed write never
// leaves half a file and never loses the old one. The temporary is unnamed where the file
// system allows it (nothing is left if the process is killed); otherwise it has a short name
// of its own, and the stale temporaries of killed writers are removed when the next file is
// written in the same folder. Its name does not grow with the target's, so any name the file system
// accepts can be written. The name "-" stands for standard output (see WriteStandardOutput).
// On failure error holds one clear line.
bool WriteFileAtomically(const std::string& path, const std::function<bool(std::FILE*)>& writer,
                         std::string& error);

// The file name that means standard output, as shell tools take it.
inline constexpr const char* kStandardOutput = "-";

// Writes the bytes to standard output after whatever the C stream there holds, and checks
// every write: a closed pipe (with SIGPIPE ignored) or a full disk gives false and one line in
// error.
bool WriteStandardOutput(const std::string& bytes, std::string& error);

}  // namespace kirameki
