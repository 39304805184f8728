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

template <class PortType>
std::string describeOpen(const PortTable<PortType>& ports)
{
    const auto isConnected = [](const auto& port) { return port->found && port->enabled && !port->couldNotOpen; };
    return std::to_string(std::ranges::count_if(ports, isConnected)) + " of " + std::to_string(ports.size());
}

int soundingNotes(const Ports& ports)
{
    int notes = 0;
    for (const auto& port : ports.outputs()) notes += port->soundingNotes();
    return notes;
}

std::string describeCount(const Port& port, std::uint64_t count, const char* what)
{
    return count == 0 ? "" : " | " + port.name + ": " + std::to_string(count) + what;
}

std::string describeLosses(const Ports& ports)
{
    std::string text;
    for (const auto& port : ports.inputs())
        text += describeCount(*port, port->limit.limitedCount(), " limited") +
                describeCount(*port, port->arrived.lossCount(), " lost");
    for (const auto& port : ports.outputs()) text += describeCount(*port, port->lossCount(), " lost");
    return text;
}

std::string microseconds(std::chrono::nanoseconds time)
{
    return std::to_string(std::chrono::ceil<std::chrono::microseconds>(time).count());
}
}  // namespace

std::string describeLoad(const SliceLoad::Summary& load)
{
    return microseconds(load.median) + "/" + microseconds(load.most) + "/" + microseconds(load.worst) + " us";
}

std::string describeStatus(const Status& status, const Ports& ports)
{
    return status.system + " | in " + describeOpen(ports.inputs()) + ", out " + describeOpen(ports.outputs()) + " | " +
           std::to_string(status.tempo) + " bpm | slice " + describeLoad(status.load) + ", " +
           std::to_string(status.lateSlices) + " late | " + std::to_string(soundingNotes(ports)) +
           " notes | real time: " + status.realTime + describeLosses(ports);
}

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
