#include "host/terminal/OutputStream.h"

#include <io.h>
#include <windows.h>

#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <thread>
#include <utility>

namespace Host
{
/// A thread writes, because a write to a console whose user selects text, and to a full pipe, waits without a limit.
struct OutputStream::File {
    explicit File(int descriptor) : handle(reinterpret_cast<HANDLE>(_get_osfhandle(descriptor))) {}

    bool exists() const { return handle != nullptr && handle != INVALID_HANDLE_VALUE && handle != NO_STREAM; }

    bool waitUntilWritten(std::unique_lock<std::mutex>& guard, std::chrono::milliseconds patience)
    {
        return changed.wait_for(guard, patience, [this] { return waiting.empty(); });
    }

    void run()
    {
        std::unique_lock guard(lock);
        while (true) {
            changed.wait(guard, [this] { return stopping || !waiting.empty(); });
            if (waiting.empty()) return;
            const std::string text = waiting;
            guard.unlock();
            write(text);
            guard.lock();
            waiting.clear();
            changed.notify_all();
        }
    }

    /// A console gets UTF-16, whatever its code page is.
    void write(std::string_view text) const
    {
        DWORD mode = 0;
        if (GetConsoleMode(handle, &mode) != 0) {
            const int size = static_cast<int>(text.size());
            std::wstring wide(text.size(), L'\0');
            const int length = MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), size);
            DWORD written = 0;
            WriteConsoleW(handle, wide.data(), static_cast<DWORD>(length), &written, nullptr);
            return;
        }
        DWORD written = 0;
        while (!text.empty() && WriteFile(handle, text.data(), static_cast<DWORD>(text.size()), &written, nullptr) != 0)
            text.remove_prefix(written);
    }

    static inline const HANDLE NO_STREAM =
        reinterpret_cast<HANDLE>(std::intptr_t{-2});  // of a program without a console

    const HANDLE handle;
    std::mutex lock;
    std::condition_variable changed;
    std::string waiting;  // until it is written
    bool isRunning = false;
    bool stopping = false;
};

OutputStream::OutputStream(int fileDescriptor) : file(std::make_shared<File>(fileDescriptor)) {}

/// The thread may wait for its reader for ever, so it ends by itself, or with the process.
OutputStream::~OutputStream()
{
    const std::lock_guard guard(file->lock);
    file->stopping = true;
    file->changed.notify_all();
}

bool OutputStream::isWritable(std::chrono::milliseconds patience) const
{
    std::unique_lock guard(file->lock);
    return file->waitUntilWritten(guard, patience);
}

bool OutputStream::write(std::string& text, std::chrono::milliseconds patience)
{
    if (text.empty()) return true;
    std::unique_lock guard(file->lock);
    if (!file->waitUntilWritten(guard, patience)) return false;
    if (!file->exists()) {
        text.clear();
        return true;
    }
    if (!std::exchange(file->isRunning, true)) std::thread([keep = file] { keep->run(); }).detach();
    file->waiting = std::exchange(text, {});
    file->changed.notify_all();
    return file->waitUntilWritten(guard, patience);
}
}  // namespace Host
