#include "host/terminal/LineOutput.h"

namespace Host
{
using namespace std::chrono_literals;

namespace
{
constexpr auto PATIENCE = 250ms;
constexpr int STANDARD_OUTPUT = 1;
constexpr int STANDARD_ERROR = 2;
}  // namespace

LineOutput::LineOutput(int fileDescriptor) : stream(fileDescriptor) {}

void LineOutput::write(std::string_view text)
{
    const MutexLock guard(lock);
    isStalled = !stream.isWritable(isStalled ? 0ms : PATIENCE) || !stream.write(unfinished, PATIENCE);
    if (!isStalled && leftOut > 0) {
        unfinished = "... " + std::to_string(leftOut) + " left out, because nothing read them\n";
        leftOut = 0;
        isStalled = !stream.write(unfinished, PATIENCE);
    }
    if (isStalled) {
        ++leftOut;
        return;
    }
    unfinished = text;
    isStalled = !stream.write(unfinished, PATIENCE);
    if (!isStalled || unfinished.size() < text.size()) return;
    unfinished.clear();
    ++leftOut;
}

LineOutput& standardOutput()
{
    static LineOutput output(STANDARD_OUTPUT);
    return output;
}

LineOutput& standardError()
{
    static LineOutput output(STANDARD_ERROR);
    return output;
}
}  // namespace Host
