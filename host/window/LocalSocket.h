#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace Host
{
/// One end of a conversation between two programs of this machine. Whatever goes wrong, or takes too long, is as if the
/// other had nothing to say; no signal is sent for it.
class LocalSocket
{
public:
    /// The system allows a hundred characters or so.
    static bool isShortEnough(const std::filesystem::path& path);

    /// A file descriptor that others can connect to, for this user alone; -1 if there can be none.
    static int listenAt(const std::filesystem::path& path, int waitingVisitors);

    static LocalSocket acceptFrom(int listeningSocket);
    static LocalSocket connectTo(const std::filesystem::path& path);
    ~LocalSocket();

    LocalSocket(const LocalSocket&) = delete;
    LocalSocket& operator=(const LocalSocket&) = delete;

    /// Whether there is somebody, and it is a program of the same user.
    bool isOwnUsers() const;

    bool write(std::string_view text) const;
    bool finishWriting() const;

    /// Until the other has finished. Not more than a command line can be long.
    std::string readAll() const;

private:
    explicit LocalSocket(int openFile);

    const int file;
};
}  // namespace Host
