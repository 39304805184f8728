#include "platform/FileLock.h"

#include <windows.h>

#include <utility>

namespace
{
const auto NO_FILE = reinterpret_cast<std::intptr_t>(INVALID_HANDLE_VALUE);
}

// A file that is open without sharing is the lock; the system closes and deletes it, also when the process is killed.
std::optional<FileLock> FileLock::take(const std::filesystem::path& path)
{
    const HANDLE file =
        CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE | DELETE, 0, nullptr, OPEN_ALWAYS,
                    FILE_ATTRIBUTE_NORMAL | FILE_FLAG_DELETE_ON_CLOSE | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
    if (file == INVALID_HANDLE_VALUE) return std::nullopt;
    return FileLock(path, reinterpret_cast<std::intptr_t>(file));
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
    if (file != NO_FILE) CloseHandle(reinterpret_cast<HANDLE>(file));
}
