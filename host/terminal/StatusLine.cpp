#include "host/terminal/StatusLine.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <iostream>

namespace Host
{
using namespace std::chrono_literals;

namespace
{
constexpr auto PAUSE = 1s;
constexpr const char* ERASE_TO_THE_END = "\x1b[K";
constexpr std::size_t USUAL_WIDTH = 80;

std::atomic<bool> isShown{false};

std::size_t terminalWidth()
{
    winsize size{};
    const bool told = ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return told ? size.ws_col : USUAL_WIDTH;
}

/// Cut to so many bytes, never within a character.
std::string cut(std::string text, std::size_t longest)
{
    if (text.size() <= longest) return text;
    while (longest > 0 && (static_cast<unsigned char>(text[longest]) & 0xC0) == 0x80) --longest;
    return text.substr(0, longest);
}
}  // namespace

StatusLine::StatusLine() : onTerminal(isatty(STDOUT_FILENO) == 1), next(std::chrono::steady_clock::now() + PAUSE) {}

StatusLine::~StatusLine()
{
    if (isShown.exchange(false)) std::cout << std::endl;
}

bool StatusLine::isDue()
{
    const auto now = std::chrono::steady_clock::now();
    if (now < next) return false;
    next = std::max(next + PAUSE, now);
    return true;
}

// The cursor is left at the line's beginning, where the next one, whoever it is from, takes its place.
void StatusLine::show(const std::string& line)
{
    if (onTerminal) {
        isShown.store(true);
        std::cout << cut(line, terminalWidth() - 1) + ERASE_TO_THE_END + "\r" << std::flush;
    } else {
        std::cout << line + "\n" << std::flush;
    }
}

const char* StatusLine::eraser() { return isShown.load() ? ERASE_TO_THE_END : ""; }
}  // namespace Host
