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
    isStalled = !isWritable(isStalled ? 0 : PATIENCE) || !writeAll(unfinished);
    if (!isStalled && leftOut > 0) {
        unfinished = "... " + std::to_string(leftOut) + " left out, because nothing read them\n";
        leftOut = 0;
        isStalled = !writeAll(unfinished);
    }
    if (isStalled) {
        ++leftOut;
        return;
    }
    unfinished = text;
    isStalled = !writeAll(unfinished);
    if (!isStalled || unfinished.size() < text.size()) return;
    unfinished.clear();
    ++leftOut;
}

bool LineOutput::isWritable(int patience) const
{
    pollfd waited{file, POLLOUT, 0};
    int ready = 0;
    while ((ready = ::poll(&waited, 1, patience)) < 0 && errno == EINTR) {}
    return ready > 0;
}

/// Removes what was written. False if the reader did not go on in time.
bool LineOutput::writeAll(std::string& text) const
{
    std::size_t written = 0;
    while (written < text.size() && isWritable(PATIENCE)) {
        const ssize_t size = ::write(file, text.data() + written, std::min(text.size() - written, PIECE));
        if (size >= 0)
            written += static_cast<std::size_t>(size);
        else if (errno == EAGAIN)
            break;
        else if (errno != EINTR)
            written = text.size();  // no reader is left
    }
    text.erase(0, written);
    return text.empty();
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
