#include "host/terminal/TerminalWidth.h"

#include <windows.h>

namespace Host
{
std::optional<std::size_t> terminalWidth()
{
    const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
    DWORD mode = 0;
    if (GetConsoleMode(output, &mode) == 0) return std::nullopt;
    constexpr DWORD ESCAPE_SEQUENCES = ENABLE_PROCESSED_OUTPUT | ENABLE_VIRTUAL_TERMINAL_PROCESSING;
    if (SetConsoleMode(output, mode | ESCAPE_SEQUENCES) == 0) return std::nullopt;
    CONSOLE_SCREEN_BUFFER_INFO info{};
    if (GetConsoleScreenBufferInfo(output, &info) == 0) return std::nullopt;
    return static_cast<std::size_t>(info.srWindow.Right - info.srWindow.Left + 1);
}
}  // namespace Host
