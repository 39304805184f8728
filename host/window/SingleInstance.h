#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/FileLock.h"
#include "platform/Thread.h"

namespace Host
{
/// The door of the window that is open, at which a later start of the program knocks instead of opening a second one.
/// A user has one per folder of settings and machine: a local socket in the folder of the user's run-time files, and
/// beside it a lock that says whether somebody is behind it, so that what a killed program left is replaced.
class SingleInstance
{
public:
    using Visit = std::function<bool(const std::vector<std::string>& files)>;

    enum class Knock {
        answered,
        inVain,     ///< nobody is there, or not any more, or does not answer
        impossible  ///< the user has no folder for it
    };

    /// Null if another process has it, or it is impossible. Those who knock wait from now on.
    static std::unique_ptr<SingleInstance> build();

    /// Asks the open window to come to the front and to load the files, whose paths are absolute.
    static Knock knock(const std::vector<std::string>& files);

    /// Only now another process can build one.
    ~SingleInstance();

    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

    /// From now on who knocks is answered; `visit` gets the files, on a thread of the door's, and says whether it took
    /// them: if not, the visitor tries again. Once.
    void open(Visit visit);

    /// Nobody is answered any more. Those who knock try again until somebody else has a window.
    void close();

private:
    SingleInstance(FileLock taken, std::filesystem::path socketPath, int listeningSocket);

    void run(const Visit& visit) const;
    bool waitForVisitor() const;

    FileLock lock;
    const std::filesystem::path path;
    int socket;
    const int stopEvent;
    Thread thread;
};
}  // namespace Host
