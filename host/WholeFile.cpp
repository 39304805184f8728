#include "host/WholeFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cctype>
#include <cerrno>
#include <optional>
#include <string>
#include <system_error>
#include <utility>

#include "host/InputError.h"

namespace Host
{
namespace
{
namespace fs = std::filesystem;

[[noreturn]] void fail(const fs::path& path, int error)
{
    std::string reason = std::generic_category().message(error);
    reason[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(reason[0])));
    throw InputError(path.string() + ": " + reason);
}

/// An open file that closes itself. What the system refuses is thrown, naming the file as the user knows it.
class Descriptor
{
public:
    Descriptor(const fs::path& path, int flags, const fs::path& shownPath, mode_t mode = 0)
        : shown(shownPath), number(::open(path.c_str(), flags | O_CLOEXEC, mode))
    {
        if (number < 0) fail(shown, errno);
    }
    ~Descriptor()
    {
        if (number >= 0) ::close(number);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    std::size_t read(std::span<std::uint8_t> buffer)
    {
        for (;;) {
            const ssize_t count = ::read(number, buffer.data(), buffer.size());
            if (count >= 0) return static_cast<std::size_t>(count);
            if (errno != EINTR) fail(shown, errno);
        }
    }

    void write(std::span<const std::uint8_t> bytes)
    {
        while (!bytes.empty()) {
            const ssize_t count = ::write(number, bytes.data(), bytes.size());
            if (count >= 0)
                bytes = bytes.subspan(static_cast<std::size_t>(count));
            else if (errno != EINTR)
                fail(shown, errno);
        }
    }

    void setMode(mode_t mode) { check(::fchmod(number, mode)); }
    void sync() { check(::fsync(number)); }

    /// A network folder may report a full disk only here.
    void close() { check(::close(std::exchange(number, -1))); }

private:
    void check(int result)
    {
        if (result != 0) fail(shown, errno);
    }

    const fs::path& shown;
    int number;
};

std::optional<mode_t> modeOf(const fs::path& path)
{
    struct stat status {
    };
    if (::stat(path.c_str(), &status) == 0) return status.st_mode;
    return std::nullopt;
}

/// The same file by a path that is its only one but for a link at its end, as far as its folder exists.
fs::path uniquePath(const fs::path& path)
{
    std::error_code missing;
    const fs::path folder = fs::canonical(path.has_parent_path() ? path.parent_path() : ".", missing);
    return missing ? path : folder / path.filename();
}

/// Where /dev/stdout and its like lead to: a file that is already open, and that others write to.
bool isOpenFile(const fs::path& target) { return target.native().starts_with("/proc/"); }

/// The file that a path names in the end, existing or not: a rename over a link would replace the link.
fs::path followLinks(const fs::path& path)
{
    constexpr int DEEPEST = 40;
    fs::path target = uniquePath(path);
    std::error_code none;
    for (int depth = 0; !isOpenFile(target) && fs::is_symlink(fs::symlink_status(target, none)); ++depth) {
        if (depth == DEEPEST) fail(path, ELOOP);
        target = uniquePath(target.parent_path() / fs::read_symlink(target, none));
    }
    return target;
}

/// A name that is free, also where a run that was killed left its own behind.
fs::path temporaryBeside(const fs::path& target)
{
    static std::atomic<unsigned> count{0};
    const std::string stem = ".orvane-" + std::to_string(::getpid()) + "-";
    for (;;) {
        fs::path temporary = target.parent_path() / (stem + std::to_string(++count));
        std::error_code none;
        if (!fs::exists(fs::symlink_status(temporary, none))) return temporary;
    }
}

void writeTemporary(const fs::path& temporary, const fs::path& shown, std::optional<mode_t> oldMode,
                    std::span<const std::uint8_t> bytes)
{
    Descriptor file(temporary, O_WRONLY | O_CREAT | O_EXCL, shown, oldMode ? 0600 : 0666);
    try {
        file.write(bytes);
        if (oldMode) file.setMode(*oldMode & 07777);
        file.sync();
        file.close();
    } catch (const InputError&) {
        ::unlink(temporary.c_str());
        throw;
    }
}

/// So that the new name survives a power cut too; a file system that cannot do it does no harm.
void syncFolderOf(const fs::path& target)
{
    const int number = ::open(target.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (number < 0) return;
    ::fsync(number);
    ::close(number);
}

std::span<const std::uint8_t> bytesOf(std::string_view text)
{
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}
}  // namespace

std::vector<std::uint8_t> readWholeFile(const fs::path& path, std::size_t largest)
{
    constexpr std::size_t STEP = 64u << 10;
    Descriptor file(path, O_RDONLY, path);
    std::vector<std::uint8_t> bytes;
    for (std::size_t size = 0;;) {
        bytes.resize(size + STEP);
        const std::size_t count = file.read(std::span(bytes).subspan(size));
        size += count;
        if (size > largest) throw InputError(path.string() + ": larger than " + std::to_string(largest) + " bytes");
        if (count == 0) {
            bytes.resize(size);
            return bytes;
        }
    }
}

StagedFiles::~StagedFiles()
{
    for (const Staged& file : files)
        if (!file.temporary.empty()) ::unlink(file.temporary.c_str());
}

void StagedFiles::add(const fs::path& path, std::span<const std::uint8_t> bytes)
{
    const std::optional<mode_t> oldMode = modeOf(path);
    if (oldMode && S_ISDIR(*oldMode)) fail(path, EISDIR);
    const fs::path target = followLinks(path);
    if (oldMode && (!S_ISREG(*oldMode) || isOpenFile(target))) {
        streams.push_back({path, {bytes.begin(), bytes.end()}});
        return;
    }
    // A rename asks only the folder; a file that its owner has locked stays as it is.
    if (oldMode && ::access(path.c_str(), W_OK) != 0) fail(path, errno);
    for (const Staged& other : files)
        if (other.target == target) throw InputError(path.string() + ": named for two output files");
    Staged staged{path, target, temporaryBeside(target)};
    files.reserve(files.size() + 1);
    writeTemporary(staged.temporary, path, oldMode, bytes);
    files.push_back(std::move(staged));
}

void StagedFiles::add(const fs::path& path, std::string_view text) { add(path, bytesOf(text)); }

void StagedFiles::commit()
{
    for (const Stream& stream : streams) {
        Descriptor out(stream.path, O_WRONLY | O_APPEND, stream.path);
        out.write(stream.bytes);
        out.close();
    }
    streams.clear();
    for (Staged& file : files) {
        if (::rename(file.temporary.c_str(), file.target.c_str()) != 0) fail(file.shown, errno);
        file.temporary.clear();
        syncFolderOf(file.target);
    }
    files.clear();
}

void writeWholeFile(const fs::path& path, std::span<const std::uint8_t> bytes)
{
    StagedFiles file;
    file.add(path, bytes);
    file.commit();
}

void writeWholeFile(const fs::path& path, std::string_view text) { writeWholeFile(path, bytesOf(text)); }
}  // namespace Host
