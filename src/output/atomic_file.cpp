#include "output/atomic_file.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>
#include <random>

namespace kirameki {

namespace {

struct Target {
    std::string folder;  // with its trailing '/', or "./"
    std::string name;
};

Target SplitTarget(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos)
        return {"./", path};
    return {path.substr(0, slash + 1), path.substr(slash + 1)};
}

// The file a path names after following its symbolic links, so that a link at the target is
// written through rather than replaced by a file. A link may dangle: the file it names is then
// created. Empty, with errno set, when the links loop or one cannot be read.
std::string FollowLinks(const std::string& path) {
    std::string current = path;
    for (int hop = 0; hop < 40; ++hop) {
        struct stat status {};
        if (lstat(current.c_str(), &status) != 0 || !S_ISLNK(status.st_mode))
            return current;
        std::error_code error;
        const std::string next = std::filesystem::read_symlink(current, error).string();
        if (error || next.empty()) {
            errno = error ? error.value() : ENOENT;
            return {};
        }
        if (next[0] == '/') {
            current = next;
        } else {
            current = SplitTarget(current).folder;
            current += next;
        }
    }
    errno = ELOOP;
    return {};
}

// Why the thing at the target may not be replaced by a file: empty for a regular file or
// nothing. A device, FIFO, socket or folder is left alone.
std::string NotAFileProblem(const struct stat& status) {
    if (S_ISREG(status.st_mode))
        return {};
    if (S_ISDIR(status.st_mode))
        return "it is a folder";
    if (S_ISCHR(status.st_mode) || S_ISBLK(status.st_mode))
        return "it is a device";
    if (S_ISFIFO(status.st_mode))
        return "it is a FIFO";
    if (S_ISSOCK(status.st_mode))
        return "it is a socket";
    return "it is not a regular file";
}

// Temporary names are short and fixed in length whatever the target's name, so that any name
// the file system accepts can be written: a dot, sixteen hexadecimal digits of a key of the
// target's name, ".tmp-" and six random characters.
std::string TemporaryPrefix(const std::string& name) {
    std::uint64_t hash = 14695981039346656037ull;  // FNV-1a
    for (const unsigned char c : name) {
        hash ^= c;
        hash *= 1099511628211ull;
    }
    static const char kHex[] = "0123456789abcdef";
    std::string prefix = ".";
    for (int shift = 60; shift >= 0; shift -= 4)
        prefix += kHex[(hash >> shift) & 15];
    return prefix + ".tmp-";
}
constexpr std::size_t kRandomLength = 6;

std::string RandomSuffix() {
    static const char kChars[] = "abcdefghijklmnopqrstuvwxyz0123456789";
    std::random_device device;
    std::string suffix;
    for (std::size_t i = 0; i < kRandomLength; ++i)
        suffix += kChars[device() % (sizeof kChars - 1)];
    return suffix;
}

// Whether a name in the folder has the form of this program's temporaries.
bool IsTemporaryName(const std::string& name) {
    const std::size_t keyEnd = 17, suffixEnd = keyEnd + 5;
    if (name.size() != suffixEnd + kRandomLength || name[0] != '.' ||
        name.compare(keyEnd, 5, ".tmp-") != 0)
        return false;
    return name.find_first_not_of("0123456789abcdef", 1) == keyEnd;
}

// A writer holds an exclusive lock on its temporary file from creation to rename, so a
// temporary that can be locked belongs to a writer that died (killed, or the machine went
// down) and is removed, whichever target it was for: a frame of a killed capture may never be
// written again.
void RemoveStaleTemporaries(const Target& target) {
    std::unique_ptr<DIR, int (*)(DIR*)> folder(opendir(target.folder.c_str()), &closedir);
    if (!folder)
        return;
    while (const dirent* entry = readdir(folder.get())) {
        const std::string name = entry->d_name;
        if (!IsTemporaryName(name))
            continue;
        const std::string path = target.folder + name;
        const int fd = open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
        if (fd < 0)
            continue;
        if (flock(fd, LOCK_EX | LOCK_NB) == 0)
            unlink(path.c_str());
        close(fd);
    }
}

// Locks a new temporary; false when a cleaner removed it between its creation and the lock
// (it then has no name left) and another must be made.
bool LockedAndStillNamed(int fd) {
    struct stat status {};
    return flock(fd, LOCK_EX) == 0 && fstat(fd, &status) == 0 && status.st_nlink > 0;
}

bool WriteAll(int fd, const char* data, std::size_t size) {
    while (size > 0) {
        const ssize_t n = write(fd, data, size);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0) {
            if (n == 0)
                errno = EIO;
            return false;
        }
        data += n;
        size -= std::size_t(n);
    }
    return true;
}

// The bytes the writer produces, gathered in memory so that every write to the disk is one
// plain write(2) whose failure is seen.
bool Produce(const std::function<bool(std::FILE*)>& writer, std::string& bytes) {
    char* buffer = nullptr;
    std::size_t size = 0;
    std::FILE* stream = open_memstream(&buffer, &size);
    if (stream == nullptr)
        return false;
    const bool ok = writer(stream);
    const bool closed = std::fclose(stream) == 0;
    std::unique_ptr<char, void (*)(void*)> owned(buffer, &std::free);
    if (!ok || !closed)
        return false;
    bytes.assign(buffer, size);
    return true;
}

class AtomicWrite {
  public:
    // `path` names the file itself (links followed); `replaced` is its status when it exists.
    AtomicWrite(const std::string& path, const struct stat* replaced)
        : path_(path), target_(SplitTarget(path)), replaced_(replaced) {}
    ~AtomicWrite() {
        if (!linkedName_.empty())
            unlink(linkedName_.c_str());
        if (fd_ >= 0)
            close(fd_);
    }

    bool Run(const std::string& bytes) {
        RemoveStaleTemporaries(target_);
        if (!Open() || !KeepOwnerAndMode())
            return false;
        if (!WriteAll(fd_, bytes.data(), bytes.size()) || fsync(fd_) != 0)
            return false;
        if (!Publish())
            return false;
        // The rename itself reaches the disk with the folder.
        const int folder = open(target_.folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        if (folder >= 0) {
            fsync(folder);
            close(folder);
        }
        return true;
    }

  private:
    // A replaced file keeps its owner, group and permissions (as far as this user may set
    // them); a new one has the mode the umask leaves of 0666, as any new file.
    bool KeepOwnerAndMode() {
        if (replaced_ == nullptr)
            return true;
        // Ownership first: changing it clears set-user-ID bits the mode then puts back.
        if (fchown(fd_, replaced_->st_uid, replaced_->st_gid) != 0 &&
            fchown(fd_, static_cast<uid_t>(-1), replaced_->st_gid) != 0) {
            // Another user's file: it becomes this user's, with the same permissions.
        }
        return fchmod(fd_, replaced_->st_mode & 07777) == 0;
    }

    bool Open() {
        // An unnamed file first: a kill leaves nothing behind.
        fd_ = open(target_.folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0666);
        if (fd_ >= 0) {
            unnamed_ = true;
            return flock(fd_, LOCK_EX) == 0;
        }
        if (errno != EOPNOTSUPP && errno != EISDIR && errno != EINVAL && errno != ENOENT)
            return false;
        // A file system without unnamed files: a named temporary, locked at once.
        for (int attempt = 0; attempt < 100; ++attempt) {
            const std::string name =
                target_.folder + TemporaryPrefix(target_.name) + RandomSuffix();
            fd_ = open(name.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0666);
            if (fd_ >= 0 && LockedAndStillNamed(fd_)) {
                linkedName_ = name;
                return true;
            }
            if (fd_ >= 0) {
                close(fd_);
                fd_ = -1;
                continue;
            }
            if (errno != EEXIST)
                return false;
        }
        return false;
    }

    bool Publish() {
        if (unnamed_) {
            const std::string self = "/proc/self/fd/" + std::to_string(fd_);
            // A new file appears whole under its name at once.
            if (linkat(AT_FDCWD, self.c_str(), AT_FDCWD, path_.c_str(), AT_SYMLINK_FOLLOW) == 0)
                return true;
            if (errno != EEXIST)
                return false;
            // linkat cannot replace a file: link under a temporary name and rename that.
            for (int attempt = 0; attempt < 100 && linkedName_.empty(); ++attempt) {
                const std::string name =
                    target_.folder + TemporaryPrefix(target_.name) + RandomSuffix();
                if (linkat(AT_FDCWD, self.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0)
                    linkedName_ = name;
                else if (errno != EEXIST)
                    return false;
            }
            if (linkedName_.empty())
                return false;
        }
        if (std::rename(linkedName_.c_str(), path_.c_str()) != 0)
            return false;
        linkedName_.clear();
        return true;
    }

    std::string path_;
    Target target_;
    const struct stat* replaced_;
    int fd_ = -1;
    bool unnamed_ = false;
    std::string linkedName_;  // the temporary's name while it has one
};

}  // namespace

bool WriteStandardOutput(const std::string& bytes, std::string& error) {
    if (std::fflush(stdout) != 0 || !WriteAll(STDOUT_FILENO, bytes.data(), bytes.size())) {
        error =
            std::string("Cannot write to standard output: ") + std::strerror(errno ? errno : EIO);
        return false;
    }
    return true;
}

bool WriteFileAtomically(const std::string& path, const std::function<bool(std::FILE*)>& writer,
                         std::string& error) {
    std::string bytes;
    if (!Produce(writer, bytes)) {
        error = "Cannot write " + path + ": the data could not be encoded";
        return false;
    }
    if (path == kStandardOutput)
        return WriteStandardOutput(bytes, error);
    const std::string file = FollowLinks(path);
    if (file.empty()) {
        error = "Cannot write " + path + ": " + std::strerror(errno ? errno : EIO);
        return false;
    }
    struct stat status {};
    const bool exists = stat(file.c_str(), &status) == 0;
    if (exists) {
        if (const std::string problem = NotAFileProblem(status); !problem.empty()) {
            error = "Cannot write " + path + ": " + problem + ", not a regular file";
            return false;
        }
    }
    AtomicWrite write(file, exists ? &status : nullptr);
    if (!write.Run(bytes)) {
        error = "Cannot write " + path + ": " + std::strerror(errno ? errno : EIO);
        return false;
    }
    return true;
}

}  // namespace kirameki
