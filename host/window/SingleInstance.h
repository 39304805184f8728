#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/window/InstanceChannel.h"
#include "platform/Thread.h"

namespace Host
{
/// What makes the window the only one: a later start of the program sends its files here instead of opening a second
/// window. There is one for each user, machine and settings folder.
class SingleInstance
{
public:
    /// Whether the files of another start were accepted.
    using Accept = std::function<bool(const std::vector<std::string>& files)>;

    enum class Result {
        accepted,
        noAnswer,   ///< no window is open, or it is closing, or it does not answer
        impossible  ///< the system has no place for it
    };

    /// From now on other starts can connect; they wait until `listen`. Null if another process has it, or it is
    /// impossible.
    static std::unique_ptr<SingleInstance> acquire();

    /// Asks the open window to come to the front and to load the files, whose paths are absolute.
    static Result notify(const std::vector<std::string>& files);

    /// Another process can acquire it.
    ~SingleInstance();

    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

    /// From now on other starts are answered. `accept` is called with their files on a thread of this object; if it
    /// returns false the other start tries again. Once.
    void listen(Accept accept);

    /// Answers no other start any more. They try again until another process has it, or give up.
    void stopListening();

private:
    explicit SingleInstance(std::unique_ptr<InstanceListener> opened);

    void run(const Accept& accept) const;

    const std::unique_ptr<InstanceListener> listener;
    Thread thread;
};
}  // namespace Host
