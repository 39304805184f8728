#include "host/terminal/InputStream.h"

#include <io.h>
#include <windows.h>

#include <array>
#include <atomic>
#include <string>

namespace Host
{
namespace
{
constexpr DWORD BETWEEN_ATTEMPTS = 10;  // milliseconds
constexpr char END_OF_INPUT = 26;       // Ctrl+Z at the start of a line of a console
}  // namespace

struct InputStream::File {
    explicit File(int descriptor) : handle(reinterpret_cast<HANDLE>(_get_osfhandle(descriptor))) {}

    std::size_t readFile(std::span<char> bytes) const
    {
        DWORD size = 0;
        return ReadFile(handle, bytes.data(), static_cast<DWORD>(bytes.size()), &size, nullptr) != 0 ? size : 0;
    }

    /// A console gives UTF-16, whatever its code page is; a character may be divided between two reads.
    std::size_t readConsole(std::span<char> bytes)
    {
        if (text.empty() && !readConsoleText()) return 0;
        const std::size_t size = text.copy(bytes.data(), bytes.size());
        text.erase(0, size);
        return size;
    }

    bool readConsoleText()
    {
        std::array<wchar_t, 1024> characters;
        DWORD length = 0;
        if (ReadConsoleW(handle, characters.data(), characters.size(), &length, nullptr) == 0) return false;
        wide.append(characters.data(), length);
        std::wstring half;
        if (!wide.empty() && IS_HIGH_SURROGATE(wide.back())) half = wide.substr(wide.size() - 1);
        wide.resize(wide.size() - half.size());
        const int size = static_cast<int>(wide.size());
        text.resize(wide.size() * 3);
        text.resize(static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, text.data(),
                                                                 static_cast<int>(text.size()), nullptr, nullptr)));
        wide = half;
        return !text.empty() && text.front() != END_OF_INPUT;
    }

    const HANDLE handle;
    std::atomic<bool> isInterrupted{false};
    std::atomic<HANDLE> reader{nullptr};  // the thread that reads, while it reads

    // The reading thread's
    std::wstring wide;
    std::string text;
};

InputStream::InputStream(int fileDescriptor) : file(std::make_unique<File>(fileDescriptor)) {}

InputStream::~InputStream()
{
    if (const HANDLE thread = file->reader.load()) CloseHandle(thread);
}

std::size_t InputStream::read(std::span<char> bytes)
{
    if (file->reader.load() == nullptr)
        file->reader.store(OpenThread(THREAD_TERMINATE | SYNCHRONIZE, FALSE, GetCurrentThreadId()));
    if (file->isInterrupted.load()) return 0;
    DWORD mode = 0;
    const bool isConsole = GetConsoleMode(file->handle, &mode) != 0;
    const std::size_t size = isConsole ? file->readConsole(bytes) : file->readFile(bytes);
    return file->isInterrupted.load() ? 0 : size;
}

// A call that comes before the thread waits has no effect, so it is repeated.
void InputStream::interrupt()
{
    file->isInterrupted.store(true);
    while (const HANDLE thread = file->reader.load()) {
        CancelSynchronousIo(thread);
        if (WaitForSingleObject(thread, BETWEEN_ATTEMPTS) != WAIT_TIMEOUT) return;
    }
}
}  // namespace Host
