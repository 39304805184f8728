#include "platform/windows/Wide.h"

#include <windows.h>

#include <algorithm>
#include <iterator>

std::wstring widen(std::string_view text)
{
    const int size = static_cast<int>(text.size());
    std::wstring wide(static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0)), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

std::string narrow(std::wstring_view text)
{
    const int size = static_cast<int>(text.size());
    const int needed = WideCharToMultiByte(CP_UTF8, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(needed), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), size, bytes.data(), needed, nullptr, nullptr);
    return bytes;
}

std::error_code lastError()
{
    struct Known {
        DWORD system;
        std::errc general;
    };
    constexpr Known KNOWN[] = {
        {ERROR_FILE_NOT_FOUND, std::errc::no_such_file_or_directory},
        {ERROR_PATH_NOT_FOUND, std::errc::no_such_file_or_directory},
        {ERROR_INVALID_NAME, std::errc::no_such_file_or_directory},
        {ERROR_ACCESS_DENIED, std::errc::permission_denied},
        {ERROR_WRITE_PROTECT, std::errc::read_only_file_system},
        {ERROR_SHARING_VIOLATION, std::errc::device_or_resource_busy},
        {ERROR_LOCK_VIOLATION, std::errc::device_or_resource_busy},
        {ERROR_FILE_EXISTS, std::errc::file_exists},
        {ERROR_ALREADY_EXISTS, std::errc::file_exists},
        {ERROR_DISK_FULL, std::errc::no_space_on_device},
        {ERROR_HANDLE_DISK_FULL, std::errc::no_space_on_device},
        {ERROR_FILENAME_EXCED_RANGE, std::errc::filename_too_long},
    };
    const DWORD error = GetLastError();
    const auto* const found = std::ranges::find(KNOWN, error, &Known::system);
    if (found != std::end(KNOWN)) return std::make_error_code(found->general);
    return {static_cast<int>(error), std::system_category()};
}

std::string describe(unsigned long systemError)
{
    wchar_t text[256];
    const DWORD size = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, systemError,
                                      0, text, static_cast<DWORD>(std::size(text)), nullptr);
    std::string sentence = narrow({text, size});
    while (!sentence.empty() && (sentence.back() == '\n' || sentence.back() == '\r' || sentence.back() == '.'))
        sentence.pop_back();
    return sentence.empty() ? "error " + std::to_string(systemError) : sentence;
}
