#include "host/window/linux/LocalSocket.h"

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <utility>

namespace Host
{
namespace
{
constexpr timeval LONGEST_WAIT{2, 0};
constexpr std::size_t LONGEST_TEXT = 1 << 21;

sockaddr_un addressOf(const std::filesystem::path& path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.native().copy(address.sun_path, sizeof address.sun_path - 1);
    return address;
}

int newSocket() { return ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0); }

template <auto operation>
bool apply(int file, const std::filesystem::path& path)
{
    const sockaddr_un address = addressOf(path);
    return operation(file, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}
}  // namespace

bool LocalSocket::isShortEnough(const std::filesystem::path& path)
{
    return path.native().size() < sizeof sockaddr_un{}.sun_path;
}

int LocalSocket::listenAt(const std::filesystem::path& path, int waitingConnections)
{
    const int file = newSocket();
    if (apply<&::bind>(file, path) && ::chmod(path.c_str(), S_IRUSR | S_IWUSR) == 0 &&
        ::listen(file, waitingConnections) == 0)
        return file;
    ::close(file);
    return -1;
}

LocalSocket LocalSocket::acceptFrom(int listeningSocket)
{
    return LocalSocket(::accept4(listeningSocket, nullptr, nullptr, SOCK_CLOEXEC));
}

LocalSocket LocalSocket::connectTo(const std::filesystem::path& path)
{
    const int file = newSocket();
    apply<&::connect>(file, path);  // `isOwnUsers` shows whether it is connected
    return LocalSocket(file);
}

LocalSocket::LocalSocket(int openFile) : file(openFile)
{
    ::setsockopt(file, SOL_SOCKET, SO_RCVTIMEO, &LONGEST_WAIT, sizeof LONGEST_WAIT);
    ::setsockopt(file, SOL_SOCKET, SO_SNDTIMEO, &LONGEST_WAIT, sizeof LONGEST_WAIT);
}

LocalSocket::LocalSocket(LocalSocket&& other) noexcept : file(std::exchange(other.file, -1)) {}

LocalSocket::~LocalSocket()
{
    if (file >= 0) ::close(file);
}

bool LocalSocket::isOwnUsers() const
{
    ucred other{};
    socklen_t size = sizeof other;
    return ::getsockopt(file, SOL_SOCKET, SO_PEERCRED, &other, &size) == 0 && other.uid == ::getuid();
}

bool LocalSocket::write(std::string_view text) const
{
    while (!text.empty()) {
        const ssize_t size = ::send(file, text.data(), text.size(), MSG_NOSIGNAL);
        if (size <= 0) return false;
        text.remove_prefix(static_cast<std::size_t>(size));
    }
    return true;
}

bool LocalSocket::finishWriting() const { return ::shutdown(file, SHUT_WR) == 0; }

std::string LocalSocket::readAll() const
{
    std::string text;
    std::array<char, 4096> bytes;
    ssize_t size = 0;
    while (text.size() < LONGEST_TEXT && (size = ::read(file, bytes.data(), bytes.size())) > 0)
        text.append(bytes.data(), static_cast<std::size_t>(size));
    return text;
}
}  // namespace Host
