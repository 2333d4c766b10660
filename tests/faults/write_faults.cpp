// Preloaded into kirameki-cli to make the file system fail where a full or broken disk
// would: KIRAMEKI_FAULT=CALL:ERRNO[:SKIP] makes CALL (write, fsync, rename, linkat) fail with
// ERRNO (ENOSPC, EIO) after SKIP successful calls. Writes fail only on regular files, so the
// program can still say why on stderr. KIRAMEKI_NO_TMPFILE=1 makes the file system refuse
// unnamed temporary files, as some do, so the named fallback is exercised too.
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

struct Fault {
    char call[16] = {};
    int error = 0;
    long skip = 0;
};

Fault ReadFault() {
    Fault fault;
    const char* text = std::getenv("KIRAMEKI_FAULT");
    if (text == nullptr)
        return fault;
    char name[16] = {}, code[16] = {};
    long skip = 0;
    if (std::sscanf(text, "%15[^:]:%15[^:]:%ld", name, code, &skip) < 2)
        return fault;
    std::strcpy(fault.call, name);
    fault.error = std::strcmp(code, "EIO") == 0 ? EIO : ENOSPC;
    fault.skip = skip;
    return fault;
}

// Whether this call of `call` fails; the count runs per process.
bool Fails(const char* call) {
    static const Fault fault = ReadFault();
    static long seen = 0;
    if (fault.error == 0 || std::strcmp(fault.call, call) != 0)
        return false;
    if (seen++ < fault.skip)
        return false;
    errno = fault.error;
    return true;
}

template <typename F>
F Next(const char* name) {
    return reinterpret_cast<F>(dlsym(RTLD_NEXT, name));
}

bool RegularFile(int fd) {
    struct stat status {};
    return fstat(fd, &status) == 0 && S_ISREG(status.st_mode);
}

}  // namespace

extern "C" {

ssize_t write(int fd, const void* data, size_t size) {
    static auto next = Next<ssize_t (*)(int, const void*, size_t)>("write");
    if (RegularFile(fd) && Fails("write"))
        return -1;
    return next(fd, data, size);
}

int fsync(int fd) {
    static auto next = Next<int (*)(int)>("fsync");
    if (RegularFile(fd) && Fails("fsync"))
        return -1;
    return next(fd);
}

int rename(const char* from, const char* to) {
    static auto next = Next<int (*)(const char*, const char*)>("rename");
    if (Fails("rename"))
        return -1;
    return next(from, to);
}

int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) {
    static auto next = Next<int (*)(int, const char*, int, const char*, int)>("linkat");
    if (Fails("linkat"))
        return -1;
    return next(fromFolder, from, toFolder, to, flags);
}

// open and open64 are one call on this platform; both names are taken so that either
// spelling the program was built with meets the fault.
int OpenWithFaults(const char* name, const char* path, int flags, mode_t mode) {
    using Open = int (*)(const char*, int, ...);
    static auto next = Next<Open>("open");
    static auto next64 = Next<Open>("open64");
    const char* refuse = std::getenv("KIRAMEKI_NO_TMPFILE");
    if ((flags & __O_TMPFILE) == __O_TMPFILE && refuse != nullptr && *refuse != '\0') {
        errno = EOPNOTSUPP;
        return -1;
    }
    return (std::strcmp(name, "open64") == 0 ? next64 : next)(path, flags, mode);
}

mode_t ModeOf(int flags, va_list args) {
    return (flags & (O_CREAT | __O_TMPFILE)) ? mode_t(va_arg(args, int)) : 0;
}

int open(const char* path, int flags, ...) {
    va_list args;
    va_start(args, flags);
    const mode_t mode = ModeOf(flags, args);
    va_end(args);
    return OpenWithFaults("open", path, flags, mode);
}

int open64(const char* path, int flags, ...) {
    va_list args;
    va_start(args, flags);
    const mode_t mode = ModeOf(flags, args);
    va_end(args);
    return OpenWithFaults("open64", path, flags, mode);
}

}  // extern "C"
