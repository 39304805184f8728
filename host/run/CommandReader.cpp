#include "host/run/CommandReader.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <array>
#include <cerrno>

#include "host/common/InputError.h"
#include "host/performance/CommandParser.h"

namespace Host
{
namespace
{
// Longer than any command; the rest of a longer line is skipped.
constexpr std::size_t LONGEST_LINE = 65536;
}  // namespace

CommandReader::CommandReader(int from, std::string inputName, Execute executeCommand, Report reportLine)
    : input(from),
      name(std::move(inputName)),
      execute(std::move(executeCommand)),
      report(std::move(reportLine)),
      stopEvent(eventfd(0, EFD_CLOEXEC))
{
    thread.start("orvane commands", [this] { run(); });
}

CommandReader::~CommandReader()
{
    eventfd_write(stopEvent, 1);
    thread.join();
    ::close(stopEvent);
}

void CommandReader::run()
{
    std::array<char, 4096> bytes;
    while (waitForInput()) {
        const ssize_t size = ::read(input, bytes.data(), bytes.size());
        if (size < 0 && errno == EINTR) continue;
        if (size <= 0) break;
        addBytes({bytes.data(), static_cast<std::size_t>(size)});
    }
    if (!line.empty()) parseLine();
}

/// False once the destructor runs.
bool CommandReader::waitForInput() const
{
    std::array<pollfd, 2> waited{{{stopEvent, POLLIN, 0}, {input, POLLIN, 0}}};
    while (::poll(waited.data(), waited.size(), -1) < 0)
        if (errno != EINTR) return false;
    return waited[0].revents == 0;
}

void CommandReader::addBytes(std::string_view bytes)
{
    for (const char byte : bytes) {
        if (byte == '\n')
            parseLine();
        else if (line.size() <= LONGEST_LINE)
            line += byte;
    }
}

void CommandReader::parseLine()
{
    const std::string where = name + ":" + std::to_string(++lineNumber);
    try {
        if (line.size() > LONGEST_LINE) throw InputError(where + ": the line is too long");
        if (const auto command = parseCommand(line, where)) execute(*command);
    } catch (const InputError& error) {
        report(error.what());
    }
    line.clear();
}
}  // namespace Host
