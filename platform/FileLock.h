#pragma once

#include <filesystem>
#include <optional>

#include "platform/Export.h"

/// A file that only one holder on this machine has at a time, in any process. It is made when taken and gone when let
/// go; what a process that was killed leaves behind can be taken again.
class ORV_API FileLock
{
public:
    /// Nothing if another holds it or the file cannot be made. Never waits.
    static std::optional<FileLock> take(const std::filesystem::path& path);

    FileLock(FileLock&& other) noexcept;
    FileLock& operator=(FileLock&& other) noexcept;
    ~FileLock();

private:
    FileLock(std::filesystem::path lockPath, int openFile) : path(std::move(lockPath)), file(openFile) {}

    std::filesystem::path path;
    int file;
};
