#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

#include "platform/Export.h"

/// A lock file that one process of the machine can hold at a time. It is created when taken and removed when released;
/// the file of a killed process can be taken again.
class ORV_API FileLock
{
public:
    /// None if another object or process holds it, or the file cannot be created. Never waits.
    static std::optional<FileLock> take(const std::filesystem::path& path);

    FileLock(FileLock&& other) noexcept;
    FileLock& operator=(FileLock&& other) noexcept;
    ~FileLock();

private:
    FileLock(std::filesystem::path lockPath, std::intptr_t openFile) : path(std::move(lockPath)), file(openFile) {}

    std::filesystem::path path;
    std::intptr_t file;  // of the system
};
