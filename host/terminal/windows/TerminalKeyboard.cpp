#include "host/terminal/TerminalKeyboard.h"

#include <io.h>
#include <windows.h>

#include <array>
#include <utility>

#include "host/terminal/ConsoleKeys.h"
#include "platform/Thread.h"

namespace Host
{
class TerminalKeyboard::Reader
{
public:
    Reader(int from, Execute executeCommand)
        : console(reinterpret_cast<HANDLE>(_get_osfhandle(from))),
          stopEvent(CreateEventW(nullptr, TRUE, FALSE, nullptr)),
          execute(std::move(executeCommand))
    {
        thread.start("orvane keys", [this] { run(); });
    }

    ~Reader()
    {
        SetEvent(stopEvent);
        thread.join();
        CloseHandle(stopEvent);
    }

private:
    void run()
    {
        const std::array<HANDLE, 2> waited{stopEvent, console};
        while (WaitForMultipleObjects(waited.size(), waited.data(), FALSE, INFINITE) == WAIT_OBJECT_0 + 1)
            if (!read()) break;
        releaseAll();
    }

    /// False when the console was closed.
    bool read()
    {
        std::array<INPUT_RECORD, 64> records;
        DWORD count = 0;
        if (ReadConsoleInputW(console, records.data(), records.size(), &count) == 0) return false;
        for (DWORD i = 0; i < count; ++i) {
            const INPUT_RECORD& record = records[i];
            if (record.EventType == KEY_EVENT) receive(record.Event.KeyEvent);
            if (record.EventType == FOCUS_EVENT && record.Event.FocusEvent.bSetFocus == 0) releaseAll();
        }
        return true;
    }

    void receive(const KEY_EVENT_RECORD& event)
    {
        const DWORD state = event.dwControlKeyState;
        const auto command = keys.receive({.virtualKey = event.wVirtualKeyCode,
                                           .scanCode = event.wVirtualScanCode,
                                           .isDown = event.bKeyDown != 0,
                                           .isExtended = (state & ENHANCED_KEY) != 0,
                                           .shift = (state & SHIFT_PRESSED) != 0,
                                           .control = (state & (LEFT_CTRL_PRESSED | RIGHT_CTRL_PRESSED)) != 0,
                                           .alt = (state & (LEFT_ALT_PRESSED | RIGHT_ALT_PRESSED)) != 0});
        if (command) execute(*command);
    }

    void releaseAll()
    {
        for (const KeyCommand& command : keys.release()) execute(command);
    }

    const HANDLE console;
    const HANDLE stopEvent;
    const Execute execute;
    ConsoleKeys keys;  // the thread's
    Thread thread;
};

TerminalKeyboard::TerminalKeyboard(int fileDescriptor, Execute execute)
    : reader(std::make_unique<Reader>(fileDescriptor, std::move(execute)))
{
}

TerminalKeyboard::~TerminalKeyboard() = default;
}  // namespace Host
