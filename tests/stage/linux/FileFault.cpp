#include "tests/stage/FileFault.h"

#include <fcntl.h>
#include <sys/types.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdarg>

namespace
{
FileFault::Kind armed = FileFault::Kind::none;
int callsToGo = -1;
std::string names;
bool watching = false;

bool fails(const char* name)
{
    if (!watching) return false;
    names += (names.empty() ? "" : " ") + std::string(name);
    return callsToGo-- == 0 && armed != FileFault::Kind::none;
}

int failure()
{
    if (armed == FileFault::Kind::death) ::kill(::getpid(), SIGKILL);
    errno = ENOSPC;
    return -1;
}
}  // namespace

FileFault::FileFault(Kind kind, int call)
{
    armed = kind;
    callsToGo = call;
    names.clear();
    watching = true;
}

FileFault::~FileFault() { watching = false; }

bool FileFault::hasHappened() const { return callsToGo < 0; }

std::string FileFault::calls() const { return names; }

const char* const FileFault::REPLACEMENT = "open write fchmod fsync close rename open fsync close";

// NOLINTBEGIN: the linker's names
extern "C" {
int __real_open(const char* path, int flags, ...);
ssize_t __real_write(int file, const void* bytes, std::size_t size);
int __real_fsync(int file);
int __real_fchmod(int file, mode_t mode);
int __real_close(int file);
int __real_rename(const char* from, const char* to);
int __real_unlink(const char* path);

int __wrap_open(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return fails("open") ? failure() : __real_open(path, flags, mode);
}

ssize_t __wrap_write(int file, const void* bytes, std::size_t size)
{
    if (!fails("write")) return __real_write(file, bytes, size);
    if (__real_write(file, bytes, size / 2) < 0) return -1;
    return failure();
}

int __wrap_fsync(int file) { return fails("fsync") ? failure() : __real_fsync(file); }

int __wrap_fchmod(int file, mode_t mode) { return fails("fchmod") ? failure() : __real_fchmod(file, mode); }

int __wrap_close(int file)
{
    const bool happened = fails("close");
    const int result = __real_close(file);
    return happened ? failure() : result;
}

int __wrap_rename(const char* from, const char* to) { return fails("rename") ? failure() : __real_rename(from, to); }

int __wrap_unlink(const char* path) { return fails("unlink") ? failure() : __real_unlink(path); }
}
// NOLINTEND
