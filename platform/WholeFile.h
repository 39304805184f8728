#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string_view>
#include <system_error>
#include <vector>

#include "platform/Export.h"

namespace WholeFile
{
/// How a file is written: as fast as the disk takes it, or at some 80 MB a second, because a burst of writing delays
/// every thread of the machine, whatever its priority.
enum class Pace { fast, gentle };
}  // namespace WholeFile

/// The replacement of a file. `stage` writes the new content to a temporary file in the same folder and flushes it to
/// the disk; `commit` renames that to the target. A crash or a full disk at any moment leaves the whole old file or the
/// whole new one. Links are followed to the file they name, an existing file's mode is kept, and a read-only file is
/// not replaced. A device or a pipe cannot be replaced, so `commit` writes to it. Throws std::bad_alloc only.
class ORV_API StagedFile
{
public:
    StagedFile() = default;
    StagedFile(StagedFile&& other) noexcept;
    StagedFile& operator=(StagedFile&&) = delete;

    /// Removes the temporary file if it was not committed.
    ~StagedFile();

    /// Once. After an error no temporary file is left.
    std::error_code stage(const std::filesystem::path& path, std::span<const std::uint8_t> bytes,
                          WholeFile::Pace pace = WholeFile::Pace::fast);

    /// After an error the target is the old file.
    std::error_code commit();

    /// True for a device, a pipe, or a file that is open already (/dev/stdout).
    bool isStream() const { return !stream.empty(); }

    /// The canonical path of the file, with links followed.
    const std::filesystem::path& getTarget() const { return target; }

private:
    std::filesystem::path target;
    std::filesystem::path temporary;  // empty before `stage` and after `commit`
    std::filesystem::path stream;
    std::vector<std::uint8_t> streamBytes;
};

namespace WholeFile
{
/// Reads all bytes of a file or pipe. More than `largest` bytes are std::errc::file_too_large.
ORV_API std::error_code read(const std::filesystem::path& path, std::size_t largest, std::vector<std::uint8_t>& bytes);

/// Replaces one file as StagedFile does.
ORV_API std::error_code replace(const std::filesystem::path& path, std::string_view text, Pace pace = Pace::fast);

/// A free name in the folder of `target`, for the file or folder that will replace it.
ORV_API std::filesystem::path temporaryBeside(const std::filesystem::path& target);

/// Whether a file name is such a name, left by a killed process.
ORV_API bool isTemporary(const std::filesystem::path& path);
}  // namespace WholeFile
