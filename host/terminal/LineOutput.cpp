#include "host/terminal/LineOutput.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace Host
{
namespace
{
constexpr int PATIENCE = 250;        // milliseconds
constexpr std::size_t PIECE = 4096;  // a pipe that can be written to takes that much

/// O_NONBLOCK of the descriptor itself would affect every program that shares it.
int openNonBlocking(int file)
{
    struct stat status {
    };
    if (::fstat(file, &status) != 0 || !(S_ISFIFO(status.st_mode) || S_ISCHR(status.st_mode))) return -1;
    return ::open(("/proc/self/fd/" + std::to_string(file)).c_str(), O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
}
}  // namespace

LineOutput::LineOutput(int fileDescriptor)
    : ownFile(openNonBlocking(fileDescriptor)), file(ownFile >= 0 ? ownFile : fileDescriptor)
{
}

LineOutput::~LineOutput()
{
    if (ownFile >= 0) ::close(ownFile);
}

void LineOutput::write(std::string_view text)
{
    const MutexLock guard(lock);
    if (finish() && leftOut > 0) {
        unfinished = "... " + std::to_string(leftOut) + " left out, because nothing read them\n";
        leftOut = 0;
        finish();
    }
    if (isStalled) {
        ++leftOut;
        return;
    }
    unfinished = text;
    if (finish() || unfinished.size() < text.size()) return;
    unfinished.clear();
    ++leftOut;
}

/// Writes what is unfinished; false if the reader does not go on.
bool LineOutput::finish()
{
    isStalled = !writeAll(unfinished, isStalled ? 0 : PATIENCE);
    return !isStalled;
}

/// Removes what was written. False if the reader did not go on in time.
bool LineOutput::writeAll(std::string& text, int patience) const
{
    std::size_t written = 0;
    bool goesOn = true;
    while (goesOn && written < text.size()) {
        pollfd waited{file, POLLOUT, 0};
        const int ready = ::poll(&waited, 1, patience);
        if (ready < 0 && errno == EINTR) continue;
        goesOn = ready > 0;
        if (!goesOn) break;
        const ssize_t size = ::write(file, text.data() + written, std::min(text.size() - written, PIECE));
        if (size >= 0)
            written += static_cast<std::size_t>(size);
        else if (errno == EAGAIN)
            goesOn = false;
        else if (errno != EINTR)
            written = text.size();  // no reader is left
    }
    text.erase(0, written);
    return goesOn;
}

LineOutput& standardOutput()
{
    static LineOutput output(STDOUT_FILENO);
    return output;
}

LineOutput& standardError()
{
    static LineOutput output(STDERR_FILENO);
    return output;
}
}  // namespace Host
