#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "host/terminal/OutputStream.h"
#include "platform/Mutex.h"

namespace Host
{
/// Writes text to a terminal, pipe or file without depending on its reader: if nothing can be written for a quarter of
/// a second, the text is left out, and so is all text until the reader goes on. Then the number of texts that were left
/// out is written first. Text of which a part was written is completed. Any thread; no time slice.
class LineOutput
{
public:
    /// The descriptor stays open and belongs to the caller.
    explicit LineOutput(int fileDescriptor);

    LineOutput(const LineOutput&) = delete;
    LineOutput& operator=(const LineOutput&) = delete;

    /// `text` is one or more whole lines, or the status line of a terminal.
    void write(std::string_view text) EXCLUDES(lock);

private:
    Mutex lock;
    OutputStream stream GUARDED_BY(lock);
    std::string unfinished GUARDED_BY(lock);
    std::uint64_t leftOut GUARDED_BY(lock) = 0;
    bool isStalled GUARDED_BY(lock) = false;
};

/// The program's standard output and standard error.
LineOutput& standardOutput();
LineOutput& standardError();
}  // namespace Host
