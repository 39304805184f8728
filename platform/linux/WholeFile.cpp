#include "platform/WholeFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <optional>
#include <string>
#include <thread>
#include <utility>

namespace
{
namespace fs = std::filesystem;
using Bytes = std::span<const std::uint8_t>;

constexpr std::string_view TEMPORARY_PREFIX = ".orvane-";

std::error_code errorOf(int number) { return {number, std::generic_category()}; }

/// The error of a call that returned non-zero.
std::error_code check(int result) { return result == 0 ? std::error_code() : errorOf(errno); }

/// A file descriptor that is closed by the destructor.
class Descriptor
{
public:
    Descriptor(const fs::path& path, int flags, mode_t mode = 0) : number(::open(path.c_str(), flags | O_CLOEXEC, mode))
    {
        if (number < 0) opening = errorOf(errno);
    }
    ~Descriptor()
    {
        if (number >= 0) ::close(number);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    std::error_code whyNotOpen() const { return opening; }

    std::error_code read(std::span<std::uint8_t> buffer, std::size_t& got)
    {
        for (;;) {
            const ssize_t count = ::read(number, buffer.data(), buffer.size());
            got = count > 0 ? static_cast<std::size_t>(count) : 0;
            if (count >= 0) return {};
            if (errno != EINTR) return errorOf(errno);
        }
    }

    std::error_code write(Bytes bytes)
    {
        while (!bytes.empty()) {
            const ssize_t count = ::write(number, bytes.data(), bytes.size());
            if (count >= 0)
                bytes = bytes.subspan(static_cast<std::size_t>(count));
            else if (errno != EINTR)
                return errorOf(errno);
        }
        return {};
    }

    std::error_code writeGently(Bytes bytes)
    {
        constexpr std::size_t PIECE = 128u << 10;
        constexpr auto PAUSE = std::chrono::microseconds(1250);
        for (; bytes.size() > PIECE; bytes = bytes.subspan(PIECE)) {
            if (auto error = write(bytes.first(PIECE))) return error;
            ::sync_file_range(number, 0, 0, SYNC_FILE_RANGE_WRITE);  // else `sync` writes all of it at once
            std::this_thread::sleep_for(PAUSE);
        }
        return write(bytes);
    }

    std::error_code setMode(mode_t mode) { return check(::fchmod(number, mode)); }
    std::error_code sync() { return check(::fsync(number)); }

    /// A network folder may report a full disk only here.
    std::error_code close() { return check(::close(std::exchange(number, -1))); }

private:
    int number;
    std::error_code opening;
};

std::optional<mode_t> modeOf(const fs::path& path)
{
    struct stat status {
    };
    if (::stat(path.c_str(), &status) == 0) return status.st_mode;
    return std::nullopt;
}

/// The same path with its folder in canonical form, if the folder exists. A link at the end stays.
fs::path uniquePath(const fs::path& path)
{
    std::error_code missing;
    const fs::path folder = fs::canonical(path.has_parent_path() ? path.parent_path() : ".", missing);
    return missing ? path : folder / path.filename();
}

/// The target of /dev/stdout and the like: a file that is already open, which other programs may write to.
bool isOpenFile(const fs::path& target) { return target.native().starts_with("/proc/"); }

/// The file that a path names after links are followed, existing or not: a rename to a link would replace the link.
std::error_code followLinks(const fs::path& path, fs::path& target)
{
    constexpr int DEEPEST = 40;
    target = uniquePath(path);
    std::error_code none;
    for (int depth = 0; !isOpenFile(target) && fs::is_symlink(fs::symlink_status(target, none)); ++depth) {
        if (depth == DEEPEST) return errorOf(ELOOP);
        target = uniquePath(target.parent_path() / fs::read_symlink(target, none));
    }
    return {};
}

std::error_code writeAll(Descriptor& file, std::optional<mode_t> mode, Bytes bytes, WholeFile::Pace pace)
{
    if (auto error = file.whyNotOpen()) return error;
    if (auto error = pace == WholeFile::Pace::gentle ? file.writeGently(bytes) : file.write(bytes)) return error;
    if (mode)
        if (auto error = file.setMode(*mode & 07777)) return error;
    if (auto error = file.sync()) return error;
    return file.close();
}

std::error_code append(const fs::path& stream, Bytes bytes)
{
    Descriptor out(stream, O_WRONLY | O_APPEND);
    if (auto error = out.whyNotOpen()) return error;
    if (auto error = out.write(bytes)) return error;
    return out.close();
}

/// Makes the new name survive a power failure; file systems that do not support it are ignored.
void syncFolderOf(const fs::path& target)
{
    Descriptor folder(target.parent_path(), O_RDONLY | O_DIRECTORY);
    if (!folder.whyNotOpen()) folder.sync();
}
}  // namespace

StagedFile::~StagedFile()
{
    if (!temporary.empty()) ::unlink(temporary.c_str());
}

std::error_code StagedFile::stage(const fs::path& path, Bytes bytes, WholeFile::Pace pace)
{
    const std::optional<mode_t> oldMode = modeOf(path);
    if (oldMode && S_ISDIR(*oldMode)) return errorOf(EISDIR);
    if (auto error = followLinks(path, target)) return error;
    if (oldMode && (!S_ISREG(*oldMode) || isOpenFile(target))) {
        stream = path;
        streamBytes.assign(bytes.begin(), bytes.end());
        return {};
    }
    // A rename checks the permissions of the folder only.
    if (oldMode && ::access(path.c_str(), W_OK) != 0) return errorOf(errno);
    const fs::path beside = WholeFile::temporaryBeside(target);
    Descriptor file(beside, O_WRONLY | O_CREAT | O_EXCL, oldMode ? 0600 : 0666);
    if (!file.whyNotOpen()) temporary = beside;
    const auto error = writeAll(file, oldMode, bytes, pace);
    if (error && !temporary.empty()) ::unlink(std::exchange(temporary, {}).c_str());
    return error;
}

std::error_code StagedFile::commit()
{
    if (isStream()) return append(stream, streamBytes);
    if (auto error = check(::rename(temporary.c_str(), target.c_str()))) return error;
    temporary.clear();
    syncFolderOf(target);
    return {};
}

namespace WholeFile
{
std::error_code read(const fs::path& path, std::size_t largest, std::vector<std::uint8_t>& bytes)
{
    constexpr std::size_t STEP = 64u << 10;
    Descriptor file(path, O_RDONLY);
    if (auto error = file.whyNotOpen()) return error;
    for (std::size_t size = 0;;) {
        bytes.resize(size + STEP);
        std::size_t got = 0;
        const auto error = file.read(std::span(bytes).subspan(size), got);
        size += got;
        if (error || got == 0) {
            bytes.resize(size);
            return error;
        }
        if (size > largest) return std::make_error_code(std::errc::file_too_large);
    }
}

fs::path temporaryBeside(const fs::path& target)
{
    static std::atomic<unsigned> count{0};
    const std::string stem = std::string(TEMPORARY_PREFIX) + std::to_string(::getpid()) + "-";
    for (;;) {
        fs::path temporary = target.parent_path() / (stem + std::to_string(++count));
        std::error_code none;
        if (!fs::exists(fs::symlink_status(temporary, none))) return temporary;
    }
}

bool isTemporary(const fs::path& path) { return path.filename().native().starts_with(TEMPORARY_PREFIX); }
}  // namespace WholeFile
