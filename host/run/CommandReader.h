#pragma once

#include <atomic>
#include <functional>
#include <string>
#include <string_view>

#include "host/performance/PerformanceCommand.h"
#include "platform/Thread.h"

namespace Host
{
/// Reads commands of a performance, without times, from a file descriptor, line by line on a thread of its own, until
/// the input ends. A line that cannot be understood goes to `complain` as one line for the user, and reading goes on.
class CommandReader
{
public:
    using Execute = std::function<void(const Command&)>;
    using Complain = std::function<void(const std::string&)>;

    /// `name` stands before the line number in complaints: "standard input:3: ...".
    CommandReader(int input, std::string name, Execute executeCommand, Complain complainOfLine);

    /// Waits until a command that is being carried out is done; what has not been read is left.
    ~CommandReader();

    CommandReader(const CommandReader&) = delete;
    CommandReader& operator=(const CommandReader&) = delete;

private:
    void run();
    bool waitForInput() const;
    void takeBytes(std::string_view bytes);
    void takeLine();

    const int input;
    const std::string name;
    const Execute execute;
    const Complain complain;
    int stopEvent;

    // The thread's
    std::string line;
    std::size_t lineNumber = 0;

    Thread thread;
};
}  // namespace Host
