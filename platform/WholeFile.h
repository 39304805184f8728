#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string_view>
#include <system_error>
#include <vector>

#include "platform/Export.h"

/// One file on its way to take another's place. `stage` writes it in full, and forces it to the disk, beside the file
/// that it will replace; only `commit` puts it there. A crash or a full disk at any moment leaves the old file or the
/// new one, whole. Links are followed to the file they name, an existing file's mode is kept, and a file that its owner
/// has locked stays as it is. A device or a pipe cannot be replaced, so `commit` writes to it. Nothing is thrown but
/// std::bad_alloc.
class ORV_API StagedFile
{
public:
    StagedFile() = default;
    StagedFile(StagedFile&& other) noexcept;
    StagedFile& operator=(StagedFile&&) = delete;

    /// Removes what has not been committed.
    ~StagedFile();

    /// Once. After an error nothing of it is left behind.
    std::error_code stage(const std::filesystem::path& path, std::span<const std::uint8_t> bytes);

    /// After an error the old file stands.
    std::error_code commit();

    /// True for a device, a pipe, or a file that is open already (/dev/stdout).
    bool isStream() const { return !stream.empty(); }

    /// The file that the path names in the end, by a path that is its only one.
    const std::filesystem::path& getTarget() const { return target; }

private:
    std::filesystem::path target;
    std::filesystem::path temporary;  // empty before `stage` and after `commit`
    std::filesystem::path stream;
    std::vector<std::uint8_t> streamBytes;
};

namespace WholeFile
{
/// All bytes of a file, pipes included. More than `largest` bytes are std::errc::file_too_large.
ORV_API std::error_code read(const std::filesystem::path& path, std::size_t largest, std::vector<std::uint8_t>& bytes);

/// Replaces one file as StagedFile does.
ORV_API std::error_code replace(const std::filesystem::path& path, std::string_view text);

/// A free name beside `target`, for what will take its place.
ORV_API std::filesystem::path temporaryBeside(const std::filesystem::path& target);

/// Whether a file name is such a name: something that a run which was killed left behind.
ORV_API bool isTemporary(const std::filesystem::path& path);
}  // namespace WholeFile
