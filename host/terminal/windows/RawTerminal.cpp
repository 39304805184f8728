#include "host/terminal/RawTerminal.h"

#include <io.h>
#include <windows.h>

#include <atomic>

#include "host/common/InputError.h"

namespace Host
{
namespace
{
// Written before `isRaw`, which the handler of Ctrl+C reads first, and not while it is true.
HANDLE console = nullptr;
DWORD before = 0;
std::atomic<bool> isRaw{false};

// Ctrl+C stays what it is. Without quick edit a click does not stop the program's output.
constexpr DWORD RAW = ENABLE_PROCESSED_INPUT | ENABLE_EXTENDED_FLAGS;
}  // namespace

RawTerminal::RawTerminal(int input)
{
    console = reinterpret_cast<HANDLE>(_get_osfhandle(input));
    if (GetConsoleMode(console, &before) == 0) throw InputError("--keys: standard input is not a terminal");
    isRaw = true;
    applyNow();
}

RawTerminal::~RawTerminal()
{
    FlushConsoleInputBuffer(console);  // unread keys must not reach the shell
    restoreNow();
    isRaw = false;
}

void RawTerminal::restoreNow()
{
    if (isRaw) SetConsoleMode(console, before);
}

void RawTerminal::applyNow()
{
    if (isRaw) SetConsoleMode(console, RAW);
}
}  // namespace Host
