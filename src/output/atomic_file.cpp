#include "output/atomic_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <vector>

namespace kirameki {

bool WriteFileAtomically(const std::string& path, const std::function<bool(std::FILE*)>& writer,
                         std::string& error) {
    std::vector<char> temporary(path.begin(), path.end());
    const char suffix[] = ".tmp-XXXXXX";
    temporary.insert(temporary.end(), suffix, suffix + sizeof suffix);
    const int fd = mkstemp(temporary.data());
    if (fd < 0) {
        error = "Cannot write " + path + ": " + std::strerror(errno);
        return false;
    }
    fchmod(fd, 0644);
    std::FILE* file = fdopen(fd, "wb");
    if (file == nullptr) {
        error = "Cannot write " + path + ": " + std::strerror(errno);
        close(fd);
        unlink(temporary.data());
        return false;
    }
    bool ok = writer(file);
    ok = std::fflush(file) == 0 && ok;
    ok = fsync(fileno(file)) == 0 && ok;
    const int savedErrno = errno;
    ok = std::fclose(file) == 0 && ok;
    if (!ok) {
        error = "Cannot write " + path + ": " + std::strerror(savedErrno ? savedErrno : EIO);
        unlink(temporary.data());
        return false;
    }
    if (std::rename(temporary.data(), path.c_str()) != 0) {
        error = "Cannot write " + path + ": " + std::strerror(errno);
        unlink(temporary.data());
        return false;
    }
    return true;
}

}  // namespace kirameki
