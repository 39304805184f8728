#include "host/terminal/InputStream.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace Host
{
struct InputStream::File {
    /// False from `interrupt` on.
    bool waitForInput() const
    {
        std::array<pollfd, 2> waited{{{stopEvent, POLLIN, 0}, {input, POLLIN, 0}}};
        while (::poll(waited.data(), waited.size(), -1) < 0)
            if (errno != EINTR) return false;
        return waited[0].revents == 0;
    }

    const int input;
    const int stopEvent = eventfd(0, EFD_CLOEXEC);
};

InputStream::InputStream(int fileDescriptor) : file(new File{fileDescriptor}) {}

InputStream::~InputStream() { ::close(file->stopEvent); }

std::size_t InputStream::read(std::span<char> bytes)
{
    while (file->waitForInput()) {
        const ssize_t size = ::read(file->input, bytes.data(), bytes.size());
        if (size < 0 && errno == EINTR) continue;
        return size < 0 ? 0 : static_cast<std::size_t>(size);
    }
    return 0;
}

void InputStream::interrupt() { eventfd_write(file->stopEvent, 1); }
}  // namespace Host
