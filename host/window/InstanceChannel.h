#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace Host
{
/// One end of a connection between two processes of the same user, which send each other one text. No call waits for
/// more than two seconds, and no signal is raised.
class InstanceChannel
{
public:
    virtual ~InstanceChannel() = default;

    /// Connects to the listener; null if there is none or it belongs to another user.
    static std::unique_ptr<InstanceChannel> connect();

    /// Sends the whole text. Once.
    virtual bool send(std::string_view text) = 0;

    /// What the other end sent, at most 2 MB; less than that, or nothing, after an error. Once.
    virtual std::string receive() = 0;
};

/// What other processes of the same user connect to. There is one for each user, machine and settings folder at a time;
/// what a killed process left is replaced.
class InstanceListener
{
public:
    virtual ~InstanceListener() = default;

    /// False where the system has no place for it.
    static bool isPossible();

    /// From now on other processes can connect; they wait until `accept`. Null if another process listens, or it is
    /// impossible.
    static std::unique_ptr<InstanceListener> open();

    /// Waits for the next connection of the same user. Null once `stop` was called. One thread.
    virtual std::unique_ptr<InstanceChannel> accept() = 0;

    /// Nothing can connect any more. Another process can listen after the destructor. Another thread.
    virtual void stop() = 0;
};
}  // namespace Host
