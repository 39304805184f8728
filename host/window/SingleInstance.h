#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/FileLock.h"
#include "platform/Thread.h"

namespace Host
{
/// The socket of the one open window: a later start of the program sends its files there instead of opening a second
/// window. There is one for each user, machine and settings folder: a local socket in the user's folder for run-time
/// files, and a lock file beside it that is held while the socket is in use, so that what a killed program left
/// is replaced.
class SingleInstance
{
public:
    /// Whether the files of another start were accepted.
    using Accept = std::function<bool(const std::vector<std::string>& files)>;

    enum class Result {
        accepted,
        noAnswer,   ///< no window is open, or it is closing, or it does not answer
        impossible  ///< the user has no folder for the socket
    };

    /// Takes the lock and opens the socket. From now on other starts can connect; they wait until `listen`. Null if
    /// another process has the lock, or it is impossible.
    static std::unique_ptr<SingleInstance> acquire();

    /// Asks the open window to come to the front and to load the files, whose paths are absolute.
    static Result notify(const std::vector<std::string>& files);

    /// Gives the lock back.
    ~SingleInstance();

    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

    /// From now on other starts are answered. `accept` is called with their files on a thread of this object; if it
    /// returns false the other start tries again. Once.
    void listen(Accept accept);

    /// Answers no other start any more. They try again until another process has the lock, or give up.
    void stopListening();

private:
    SingleInstance(FileLock taken, std::filesystem::path socketPath, int listeningSocket);

    void run(const Accept& accept) const;
    bool waitForConnection() const;

    FileLock lock;
    const std::filesystem::path path;
    int socket;
    const int stopEvent;
    Thread thread;
};
}  // namespace Host
