#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "host/common/Report.h"
#include "host/performance/PerformanceCommand.h"
#include "host/terminal/InputStream.h"
#include "platform/Thread.h"

namespace Host
{
/// Reads commands of a performance, without times, from a file descriptor, line by line on a thread of its own, until
/// the input ends. A line that is not a command is reported as one line, and reading goes on.
class CommandReader
{
public:
    using Execute = std::function<void(const Command&)>;

    /// `name` stands before the line number in reports: "standard input:3: ...".
    CommandReader(int fileDescriptor, std::string name, Execute executeCommand, Report reportLine);

    /// Waits until a command that is being executed is done; unread input stays unread.
    ~CommandReader();

    CommandReader(const CommandReader&) = delete;
    CommandReader& operator=(const CommandReader&) = delete;

private:
    void run();
    void addBytes(std::string_view bytes);
    void parseLine();

    InputStream input;
    const std::string name;
    const Execute execute;
    const Report report;

    // The thread's
    std::string line;
    std::size_t lineNumber = 0;

    Thread thread;
};
}  // namespace Host
