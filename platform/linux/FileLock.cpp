#include "platform/FileLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <utility>

namespace
{
constexpr int NO_FILE = -1;

/// False if the file was removed meanwhile: then another process can lock a new one.
bool isStillAt(const std::filesystem::path& path, int file)
{
    struct stat there {
    };
    struct stat here {
    };
    return ::stat(path.c_str(), &there) == 0 && ::fstat(file, &here) == 0 && there.st_ino == here.st_ino &&
           there.st_dev == here.st_dev;
}
}  // namespace

std::optional<FileLock> FileLock::take(const std::filesystem::path& path)
{
    for (;;) {
        const int file = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0666);
        if (file < 0) return std::nullopt;
        if (::flock(file, LOCK_EX | LOCK_NB) != 0) {
            ::close(file);
            return std::nullopt;
        }
        if (isStillAt(path, file)) return FileLock(path, file);
        ::close(file);
    }
}

FileLock::FileLock(FileLock&& other) noexcept : path(std::move(other.path)), file(std::exchange(other.file, NO_FILE)) {}

FileLock& FileLock::operator=(FileLock&& other) noexcept
{
    std::swap(path, other.path);
    std::swap(file, other.file);
    return *this;
}

FileLock::~FileLock()
{
    if (file == NO_FILE) return;
    ::unlink(path.c_str());  // before the lock is released, so that no process takes a file that is being removed
    ::close(static_cast<int>(file));
}
