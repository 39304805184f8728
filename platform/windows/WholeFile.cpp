#include "platform/WholeFile.h"

#include <windows.h>
// After windows.h
#include <aclapi.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <string>
#include <thread>
#include <utility>

#include "platform/windows/Wide.h"

namespace
{
namespace fs = std::filesystem;
using Bytes = std::span<const std::uint8_t>;

constexpr std::wstring_view TEMPORARY_PREFIX = L".orvane-";
constexpr DWORD SHARE_ALL = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

std::error_code check(BOOL succeeded) { return succeeded != 0 ? std::error_code() : lastError(); }

/// A handle of a file that is closed by the destructor.
class File
{
public:
    File(const fs::path& path, DWORD access, DWORD creation, DWORD flags = FILE_ATTRIBUTE_NORMAL)
        : handle(CreateFileW(path.c_str(), access, SHARE_ALL, nullptr, creation, flags, nullptr))
    {
        if (handle == INVALID_HANDLE_VALUE) opening = lastError();
    }
    ~File() { close(); }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    std::error_code whyNotOpen() const { return opening; }
    HANDLE get() const { return handle; }
    bool isStream() const { return !opening && GetFileType(handle) != FILE_TYPE_DISK; }

    std::error_code read(std::span<std::uint8_t> buffer, std::size_t& got)
    {
        DWORD count = 0;
        const BOOL done = ReadFile(handle, buffer.data(), static_cast<DWORD>(buffer.size()), &count, nullptr);
        got = count;
        return done == 0 && GetLastError() == ERROR_BROKEN_PIPE ? std::error_code() : check(done);
    }

    std::error_code write(Bytes bytes)
    {
        while (!bytes.empty()) {
            DWORD count = 0;
            if (auto error = check(WriteFile(handle, bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr)))
                return error;
            bytes = bytes.subspan(count);
        }
        return {};
    }

    std::error_code writeGently(Bytes bytes)
    {
        constexpr std::size_t PIECE = 128u << 10;
        constexpr auto PAUSE = std::chrono::microseconds(1250);
        for (; bytes.size() > PIECE; bytes = bytes.subspan(PIECE)) {
            if (auto error = write(bytes.first(PIECE))) return error;
            std::this_thread::sleep_for(PAUSE);
        }
        return write(bytes);
    }

    std::error_code sync() { return check(FlushFileBuffers(handle)); }

    std::error_code close()
    {
        const HANDLE closing = std::exchange(handle, INVALID_HANDLE_VALUE);
        return closing == INVALID_HANDLE_VALUE ? std::error_code() : check(CloseHandle(closing));
    }

private:
    HANDLE handle;
    std::error_code opening;
};

/// The file that a path names after links are followed, in full.
fs::path followLinks(const fs::path& path)
{
    std::error_code none;
    const File file(path, 0, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS);
    if (file.whyNotOpen()) return fs::absolute(path, none);
    std::wstring target(MAX_PATH, L'\0');
    for (;;) {
        const DWORD size = GetFinalPathNameByHandleW(file.get(), target.data(), static_cast<DWORD>(target.size()), 0);
        if (size == 0) return fs::absolute(path, none);
        if (size < target.size()) return target.substr(0, size);
        target.resize(size + 1);
    }
}

std::error_code writeAll(File& file, Bytes bytes, WholeFile::Pace pace)
{
    if (auto error = file.whyNotOpen()) return error;
    if (auto error = pace == WholeFile::Pace::gentle ? file.writeGently(bytes) : file.write(bytes)) return error;
    if (auto error = file.sync()) return error;
    return file.close();
}

std::error_code append(const fs::path& stream, Bytes bytes)
{
    File out(stream, FILE_APPEND_DATA, OPEN_EXISTING);
    if (auto error = out.whyNotOpen()) return error;
    if (auto error = out.write(bytes)) return error;
    return out.close();
}

/// The access list of the file that will be replaced. What cannot be kept is left as the folder
/// gives it.
void keepRights(const fs::path& from, const fs::path& to)
{
    PACL list = nullptr;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    SECURITY_DESCRIPTOR_CONTROL control = 0;
    DWORD revision = 0;
    if (GetNamedSecurityInfoW(from.c_str(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr, &list, nullptr,
                              &descriptor) != ERROR_SUCCESS)
        return;
    GetSecurityDescriptorControl(descriptor, &control, &revision);
    const SECURITY_INFORMATION inheritance =
        (control & SE_DACL_PROTECTED) != 0 ? PROTECTED_DACL_SECURITY_INFORMATION : 0;
    std::wstring name = to.native();
    SetNamedSecurityInfoW(name.data(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION | inheritance, nullptr, nullptr, list,
                          nullptr);
    LocalFree(descriptor);
}

/// Not `ReplaceFile`: it renames twice, so that a crash between leaves no file of that name.
std::error_code moveOver(const fs::path& temporary, const fs::path& target)
{
    return check(MoveFileExW(temporary.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH));
}
}  // namespace

StagedFile::~StagedFile()
{
    if (!temporary.empty()) DeleteFileW(temporary.c_str());
}

std::error_code StagedFile::stage(const fs::path& path, Bytes bytes, WholeFile::Pace pace)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    const bool exists = attributes != INVALID_FILE_ATTRIBUTES;
    if (exists && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return std::make_error_code(std::errc::is_a_directory);
    if (exists && (attributes & FILE_ATTRIBUTE_READONLY) != 0)
        return std::make_error_code(std::errc::permission_denied);
    target = followLinks(path);
    if (File(path, FILE_APPEND_DATA, OPEN_EXISTING).isStream()) {
        stream = path;
        streamBytes.assign(bytes.begin(), bytes.end());
        return {};
    }
    const fs::path beside = WholeFile::temporaryBeside(target);
    File file(beside, GENERIC_WRITE, CREATE_NEW, exists ? attributes : DWORD{FILE_ATTRIBUTE_NORMAL});
    if (!file.whyNotOpen()) temporary = beside;
    if (!file.whyNotOpen() && exists) keepRights(target, beside);
    const auto error = writeAll(file, bytes, pace);
    if (error && !temporary.empty()) {
        file.close();
        DeleteFileW(std::exchange(temporary, {}).c_str());
    }
    return error;
}

/// A program that looks at a new file for a moment, as virus scanners do, is waited for.
std::error_code StagedFile::commit()
{
    if (isStream()) return append(stream, streamBytes);
    constexpr int TRIES = 20;
    constexpr auto PAUSE = std::chrono::milliseconds(25);
    for (int tries = 1;; ++tries) {
        const auto error = moveOver(temporary, target);
        const bool isBusy = error == std::errc::device_or_resource_busy || error == std::errc::permission_denied;
        if (error && (!isBusy || tries == TRIES)) return error;
        if (!error) break;
        std::this_thread::sleep_for(PAUSE);
    }
    temporary.clear();
    return {};
}

namespace WholeFile
{
std::error_code read(const fs::path& path, std::size_t largest, std::vector<std::uint8_t>& bytes)
{
    constexpr std::size_t STEP = 64u << 10;
    File file(path, GENERIC_READ, OPEN_EXISTING);
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
    const std::wstring stem = std::wstring(TEMPORARY_PREFIX) + std::to_wstring(GetCurrentProcessId()) + L"-";
    for (;;) {
        fs::path temporary = target.parent_path() / (stem + std::to_wstring(++count));
        if (GetFileAttributesW(temporary.c_str()) == INVALID_FILE_ATTRIBUTES) return temporary;
    }
}

bool isTemporary(const fs::path& path) { return path.filename().native().starts_with(TEMPORARY_PREFIX); }
}  // namespace WholeFile
