#include "host/window/InstanceChannel.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <utility>

#include "host/window/linux/LocalSocket.h"
#include "platform/FileLock.h"
#include "platform/Folders.h"

namespace Host
{
namespace fs = std::filesystem;

namespace
{
constexpr int WAITING_CONNECTIONS = 16;

/// XDG_RUNTIME_DIR, or a folder of the program's own that no other user can write to.
std::optional<fs::path> runtimeFolder()
{
    std::error_code none;
    const char* given = std::getenv("XDG_RUNTIME_DIR");
    if (given != nullptr && *given == '/' && fs::is_directory(given, none)) return given;
    const fs::path own = fs::temp_directory_path(none) / ("orvane-" + std::to_string(::getuid()));
    ::mkdir(own.c_str(), S_IRWXU);
    struct stat there {
    };
    const bool safe = ::lstat(own.c_str(), &there) == 0 && S_ISDIR(there.st_mode) && there.st_uid == ::getuid() &&
                      (there.st_mode & (S_IWGRP | S_IWOTH)) == 0;
    return safe ? std::optional(own) : std::nullopt;
}

/// FNV-1a, the same in every process.
std::string shortNameOf(std::string_view text)
{
    std::uint64_t hash = 0xCBF29CE484222325;
    for (const char character : text) hash = (hash ^ static_cast<unsigned char>(character)) * 0x100000001B3;
    std::array<char, 16> digits;
    return {digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), hash, 16).ptr};
}

/// The path of the socket; none where it is impossible.
std::optional<fs::path> socketPathOfUser()
{
    const auto folder = runtimeFolder();
    if (!folder || ::access(folder->c_str(), W_OK) != 0) return std::nullopt;
    fs::path path = *folder / ("orvane-" + shortNameOf(Folders::getSettings()) + ".socket");
    return LocalSocket::isShortEnough(path) ? std::optional(path) : std::nullopt;
}

fs::path lockPathOf(fs::path socket) { return socket.replace_extension(".lock"); }

class SocketChannel final : public InstanceChannel
{
public:
    explicit SocketChannel(LocalSocket connected) : socket(std::move(connected)) {}

    bool isOwnUsers() const { return socket.isOwnUsers(); }

    bool send(std::string_view text) override { return socket.write(text) && socket.finishWriting(); }
    std::string receive() override { return socket.readAll(); }

private:
    const LocalSocket socket;
};

std::unique_ptr<InstanceChannel> channelOf(LocalSocket socket)
{
    return socket.isOwnUsers() ? std::make_unique<SocketChannel>(std::move(socket)) : nullptr;
}

/// A local socket in the user's folder for run-time files, and a lock file beside it that is held as long as this
/// object exists.
class SocketListener final : public InstanceListener
{
public:
    SocketListener(FileLock taken, fs::path socketPath, int listeningSocket)
        : lock(std::move(taken)),
          path(std::move(socketPath)),
          socket(listeningSocket),
          stopEvent(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
    {
    }

    ~SocketListener() override
    {
        stop();
        close();
        ::close(stopEvent);
    }

    std::unique_ptr<InstanceChannel> accept() override
    {
        while (waitForConnection())
            if (auto channel = channelOf(LocalSocket::acceptFrom(socket))) return channel;
        close();
        return nullptr;
    }

    void stop() override
    {
        if (std::exchange(stopped, true)) return;
        ::unlink(path.c_str());
        eventfd_write(stopEvent, 1);
    }

private:
    void close()
    {
        if (socket >= 0) ::close(std::exchange(socket, -1));
    }

    /// False once `stop` was called.
    bool waitForConnection() const
    {
        std::array<pollfd, 2> waited{{{stopEvent, POLLIN, 0}, {socket, POLLIN, 0}}};
        while (::poll(waited.data(), waited.size(), -1) < 0)
            if (errno != EINTR) return false;
        return waited[0].revents == 0;
    }

    FileLock lock;
    const fs::path path;
    int socket;
    const int stopEvent;
    bool stopped = false;
};
}  // namespace

std::unique_ptr<InstanceChannel> InstanceChannel::connect()
{
    const auto path = socketPathOfUser();
    return path ? channelOf(LocalSocket::connectTo(*path)) : nullptr;
}

bool InstanceListener::isPossible() { return socketPathOfUser().has_value(); }

std::unique_ptr<InstanceListener> InstanceListener::open()
{
    const auto path = socketPathOfUser();
    if (!path) return nullptr;
    auto lock = FileLock::take(lockPathOf(*path));
    if (!lock) return nullptr;
    ::unlink(path->c_str());  // left by a program that was killed
    const int socket = LocalSocket::listenAt(*path, WAITING_CONNECTIONS);
    if (socket < 0) return nullptr;
    return std::make_unique<SocketListener>(std::move(*lock), *path, socket);
}
}  // namespace Host
