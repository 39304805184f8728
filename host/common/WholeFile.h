#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string_view>
#include <vector>

#include "platform/WholeFile.h"

namespace Host
{
/// More than any useful MIDI or performance file has, in bytes. Larger files are refused.
inline constexpr std::size_t LARGEST_INPUT = 16u << 20;

/// Reads all bytes of a file or pipe. Throws InputError ("demo.perf: no such file or directory") if it cannot be read
/// or has more than `largest` bytes.
std::vector<std::uint8_t> readWholeFile(const std::filesystem::path& path, std::size_t largest = LARGEST_INPUT);

/// Output files that belong together, each a StagedFile: all are written in full before `commit` replaces the first
/// one. Without `commit` nothing changes.
class StagedFiles
{
public:
    /// Throws InputError naming `path` and the reason, also for a second file with the same target; then nothing
    /// of this file is left.
    void add(const std::filesystem::path& path, std::span<const std::uint8_t> bytes);
    void add(const std::filesystem::path& path, std::string_view text);

    /// Replaces all files in the order in which they were added, devices and pipes first. Throws InputError naming the
    /// first that failed; those after it are not replaced.
    void commit();

private:
    struct Staged {
        std::filesystem::path path;  // as the user named it
        StagedFile file;
    };
    std::vector<Staged> files;
};

/// Replaces one file as StagedFiles does.
void writeWholeFile(const std::filesystem::path& path, std::span<const std::uint8_t> bytes);
void writeWholeFile(const std::filesystem::path& path, std::string_view text);
}  // namespace Host
