#include "host/terminal/OutputStream.h"

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

struct OutputStream::File {
    explicit File(int descriptor) : own(openNonBlocking(descriptor)), used(own >= 0 ? own : descriptor) {}
    ~File()
    {
        if (own >= 0) ::close(own);
    }

    const int own;  // another opening of the same pipe or terminal, which never blocks; -1 for none
    const int used;
};

OutputStream::OutputStream(int fileDescriptor) : file(std::make_shared<File>(fileDescriptor)) {}

OutputStream::~OutputStream() = default;

bool OutputStream::isWritable(std::chrono::milliseconds patience) const
{
    pollfd waited{file->used, POLLOUT, 0};
    int ready = 0;
    while ((ready = ::poll(&waited, 1, static_cast<int>(patience.count()))) < 0 && errno == EINTR) {}
    return ready > 0;
}

bool OutputStream::write(std::string& text, std::chrono::milliseconds patience)
{
    std::size_t written = 0;
    while (written < text.size() && isWritable(patience)) {
        const ssize_t size = ::write(file->used, text.data() + written, std::min(text.size() - written, PIECE));
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
}  // namespace Host
