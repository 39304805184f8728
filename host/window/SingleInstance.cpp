#include "host/window/SingleInstance.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <utility>

#include "host/window/LocalSocket.h"
#include "platform/Folders.h"

namespace Host
{
namespace fs = std::filesystem;

namespace
{
// The request is this text, then the path of each file, each ended by a zero byte. The reply is the text.
constexpr std::string_view GREETING("orvane window 1\0", 16);

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

std::string pack(const std::vector<std::string>& files)
{
    std::string text(GREETING);
    for (const std::string& file : files) text += file + '\0';
    return text;
}

/// None if `pack` did not make it.
std::optional<std::vector<std::string>> unpack(std::string_view text)
{
    if (!text.starts_with(GREETING) || !text.ends_with('\0')) return std::nullopt;
    std::vector<std::string> files;
    for (text.remove_prefix(GREETING.size()); !text.empty(); text.remove_prefix(files.back().size() + 1))
        files.emplace_back(text.substr(0, text.find('\0')));
    return files;
}
}  // namespace

std::unique_ptr<SingleInstance> SingleInstance::acquire()
{
    const auto path = socketPathOfUser();
    if (!path) return nullptr;
    auto lock = FileLock::take(lockPathOf(*path));
    if (!lock) return nullptr;
    ::unlink(path->c_str());  // left by a program that was killed
    const int socket = LocalSocket::listenAt(*path, WAITING_CONNECTIONS);
    if (socket < 0) return nullptr;
    return std::unique_ptr<SingleInstance>(new SingleInstance(std::move(*lock), *path, socket));
}

SingleInstance::Result SingleInstance::notify(const std::vector<std::string>& files)
{
    const auto path = socketPathOfUser();
    if (!path) return Result::impossible;
    const LocalSocket window = LocalSocket::connectTo(*path);
    const bool accepted =
        window.isOwnUsers() && window.write(pack(files)) && window.finishWriting() && window.readAll() == GREETING;
    return accepted ? Result::accepted : Result::noAnswer;
}

SingleInstance::SingleInstance(FileLock taken, fs::path socketPath, int listeningSocket)
    : lock(std::move(taken)),
      path(std::move(socketPath)),
      socket(listeningSocket),
      stopEvent(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
{
}

SingleInstance::~SingleInstance()
{
    stopListening();
    ::close(stopEvent);
}

void SingleInstance::listen(Accept accept)
{
    thread.start("orvane instance", [this, call = std::move(accept)] { run(call); });
}

void SingleInstance::stopListening()
{
    if (socket < 0) return;
    ::unlink(path.c_str());
    eventfd_write(stopEvent, 1);
    thread.join();
    ::close(std::exchange(socket, -1));
}

void SingleInstance::run(const Accept& accept) const
{
    while (waitForConnection()) {
        const LocalSocket other = LocalSocket::acceptFrom(socket);
        if (!other.isOwnUsers()) continue;
        const auto files = unpack(other.readAll());
        if (!files) continue;
        if (accept(*files)) other.write(GREETING);
    }
}

/// False once `stopListening` was called.
bool SingleInstance::waitForConnection() const
{
    std::array<pollfd, 2> waited{{{stopEvent, POLLIN, 0}, {socket, POLLIN, 0}}};
    while (::poll(waited.data(), waited.size(), -1) < 0)
        if (errno != EINTR) return false;
    return waited[0].revents == 0;
}
}  // namespace Host
