#include "output/record_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>

namespace kirameki {

namespace {

std::string LockFolder() {
    const char* runtime = std::getenv("XDG_RUNTIME_DIR");
    std::error_code error;
    if (runtime != nullptr && *runtime == '/' && std::filesystem::is_directory(runtime, error))
        return std::string(runtime) + "/kirameki";
    return "/tmp/kirameki-" + std::to_string(getuid());
}

// FNV-1a: a short, stable name for a path of any length.
std::string PathKey(const std::string& path) {
    std::uint64_t hash = 14695981039346656037ull;
    for (const unsigned char c : path) {
        hash ^= c;
        hash *= 1099511628211ull;
    }
    char text[17];
    std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(hash));
    return text;
}

}  // namespace

RecordLock::~RecordLock() {
    Release();
}

void RecordLock::Release() {
    if (fd_ >= 0)
        close(fd_);
    fd_ = -1;
}

bool RecordLock::Acquire(const std::string& recordPath, std::string& error) {
    Release();
    std::error_code ignored;
    const std::string real = std::filesystem::weakly_canonical(recordPath, ignored).string();
    const std::string folder = LockFolder();
    mkdir(folder.c_str(), 0700);
    const std::string lockPath = folder + "/" + PathKey(real.empty() ? recordPath : real) + ".lock";
    const int fd = open(lockPath.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (fd < 0) {
        error = "Cannot lock " + recordPath + ": " + std::strerror(errno);
        return false;
    }
    if (flock(fd, LOCK_EX | LOCK_NB) != 0) {
        const int cause = errno;
        close(fd);
        error = cause == EWOULDBLOCK ? "Another capture is running on " + recordPath +
                                           ": wait for it to end or abort it first."
                                     : "Cannot lock " + recordPath + ": " + std::strerror(cause);
        return false;
    }
    fd_ = fd;
    return true;
}

}  // namespace kirameki
