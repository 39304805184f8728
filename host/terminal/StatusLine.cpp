#include "host/terminal/StatusLine.h"

#include <algorithm>
#include <atomic>

#include "host/terminal/LineOutput.h"
#include "host/terminal/TerminalWidth.h"

namespace Host
{
using namespace std::chrono_literals;

namespace
{
constexpr auto PAUSE = 1s;
constexpr const char* ERASE_TO_THE_END = "\x1b[K";

std::atomic<bool> isShown{false};

/// Cut to so many bytes, never within a character.
std::string cut(std::string text, std::size_t longest)
{
    if (text.size() <= longest) return text;
    while (longest > 0 && (static_cast<unsigned char>(text[longest]) & 0xC0) == 0x80) --longest;
    return text.substr(0, longest);
}
}  // namespace

StatusLine::StatusLine() : next(std::chrono::steady_clock::now() + PAUSE) {}

StatusLine::~StatusLine()
{
    if (isShown.exchange(false)) standardOutput().write("\n");
}

bool StatusLine::isDue()
{
    const auto now = std::chrono::steady_clock::now();
    if (now < next) return false;
    next = std::max(next + PAUSE, now);
    return true;
}

// The cursor stays at the start of the line, so that the next output replaces it.
void StatusLine::show(const std::string& line)
{
    if (const auto width = terminalWidth()) {
        isShown.store(true);
        standardOutput().write(cut(line, *width - 1) + ERASE_TO_THE_END + "\r");
    } else {
        standardOutput().write(line + "\n");
    }
}

const char* StatusLine::eraser() { return isShown.load() ? ERASE_TO_THE_END : ""; }
}  // namespace Host
