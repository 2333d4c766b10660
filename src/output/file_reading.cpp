#include "output/file_reading.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace kirameki {

FileBytes ReadRegularFile(const std::string& path, std::size_t limit) {
    FileBytes result;
    // Non-blocking so that opening a FIFO with no writer returns at once.
    const int fd = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (fd < 0) {
        result.outcome =
            errno == ENOENT ? FileBytes::Outcome::kMissing : FileBytes::Outcome::kFailed;
        result.error = std::strerror(errno);
        return result;
    }
    struct stat status {};
    if (fstat(fd, &status) != 0 || !S_ISREG(status.st_mode)) {
        result.error = S_ISDIR(status.st_mode) ? "it is a folder" : "it is not a regular file";
        close(fd);
        return result;
    }
    result.bytes.resize(limit);
    std::size_t filled = 0;
    while (filled < limit) {
        const ssize_t n = read(fd, result.bytes.data() + filled, limit - filled);
        if (n < 0 && errno == EINTR)
            continue;
        if (n < 0) {
            result.error = std::strerror(errno);
            close(fd);
            result.bytes.clear();
            return result;
        }
        if (n == 0)
            break;
        filled += std::size_t(n);
    }
    char probe = 0;
    result.longer = filled == limit && read(fd, &probe, 1) == 1;
    close(fd);
    result.bytes.resize(filled);
    result.outcome = FileBytes::Outcome::kRead;
    return result;
}

}  // namespace kirameki
