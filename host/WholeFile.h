#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string_view>
#include <vector>

namespace Host
{
/// More than any MIDI or performance file of use; what is larger is refused before it fills the memory.
inline constexpr std::size_t LARGEST_INPUT = 16u << 20;

/// The bytes of a file, pipes included. Throws InputError ("demo.perf: no such file or directory") if it cannot be read
/// or has more than `largest` bytes.
std::vector<std::uint8_t> readWholeFile(const std::filesystem::path& path, std::size_t largest = LARGEST_INPUT);

/// Output files that belong together. Each is written in full, and forced to the disk, beside the file it will replace;
/// only `commit` puts them in place. A crash or a full disk at any moment leaves every target the old file or the new
/// one, whole, and without `commit` nothing changes. Links are followed to the file they name, an existing file's mode
/// is kept. A device, a pipe or /dev/stdout cannot be replaced, so it is written to in `commit`.
class StagedFiles
{
public:
    StagedFiles() = default;
    StagedFiles(const StagedFiles&) = delete;
    StagedFiles& operator=(const StagedFiles&) = delete;

    /// Removes what has not been committed.
    ~StagedFiles();

    /// Throws InputError naming `path` and the reason, also for a second file with the same target; nothing of this
    /// file is left behind then.
    void add(const std::filesystem::path& path, std::span<const std::uint8_t> bytes);
    void add(const std::filesystem::path& path, std::string_view text);

    /// Puts all files in place, in the order they were added, devices and pipes first. Throws InputError naming the
    /// first that failed; those after it are not replaced.
    void commit();

private:
    struct Staged {
        std::filesystem::path shown;      // as the user named it
        std::filesystem::path target;     // links followed
        std::filesystem::path temporary;  // empty once renamed
    };
    struct Stream {
        std::filesystem::path path;
        std::vector<std::uint8_t> bytes;
    };

    std::vector<Staged> files;
    std::vector<Stream> streams;
};

/// Replaces one file as StagedFiles does.
void writeWholeFile(const std::filesystem::path& path, std::span<const std::uint8_t> bytes);
void writeWholeFile(const std::filesystem::path& path, std::string_view text);
}  // namespace Host
