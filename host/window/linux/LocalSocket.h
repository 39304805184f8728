#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace Host
{
/// One end of a local socket connection. An error, or a wait of more than two seconds, counts as the end of what the
/// other end sends; no signal is raised.
class LocalSocket
{
public:
    /// Whether the system can have a socket at that path (about a hundred characters).
    static bool isShortEnough(const std::filesystem::path& path);

    /// A listening socket that only this user can connect to; -1 on failure.
    static int listenAt(const std::filesystem::path& path, int waitingConnections);

    static LocalSocket acceptFrom(int listeningSocket);
    static LocalSocket connectTo(const std::filesystem::path& path);
    LocalSocket(LocalSocket&& other) noexcept;
    ~LocalSocket();

    LocalSocket(const LocalSocket&) = delete;
    LocalSocket& operator=(const LocalSocket&) = delete;

    /// Whether it is connected, and to a program of the same user.
    bool isOwnUsers() const;

    bool write(std::string_view text) const;
    bool finishWriting() const;

    /// Everything until the other end has finished writing, at most 2 MB.
    std::string readAll() const;

private:
    explicit LocalSocket(int openFile);

    int file;
};
}  // namespace Host
