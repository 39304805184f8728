#include "host/run/CommandReader.h"

#include <array>

#include "host/common/InputError.h"
#include "host/performance/CommandParser.h"

namespace Host
{
namespace
{
// Longer than any command; the rest of a longer line is skipped.
constexpr std::size_t LONGEST_LINE = 65536;
}  // namespace

CommandReader::CommandReader(int fileDescriptor, std::string inputName, Execute executeCommand, Report reportLine)
    : input(fileDescriptor),
      name(std::move(inputName)),
      execute(std::move(executeCommand)),
      report(std::move(reportLine))
{
    thread.start("orvane commands", [this] { run(); });
}

CommandReader::~CommandReader()
{
    input.interrupt();
    thread.join();
}

void CommandReader::run()
{
    std::array<char, 4096> bytes;
    while (const std::size_t size = input.read(bytes)) addBytes({bytes.data(), size});
    if (!line.empty()) parseLine();
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
