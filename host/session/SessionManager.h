#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "host/common/Report.h"

namespace Host
{
/// The connection to the session manager that started this program. The protocol is that of the Non Session Manager,
/// API 1.0: Open Sound Control over UDP. There is none on Windows. One object per process. See
/// docs/behaviour/sessions.md.
class SessionManager
{
public:
    /// What its request to open a session says.
    struct Opening {
        std::filesystem::path folder;  ///< for this program in this session; absolute, may not exist yet
        std::string client;            ///< the program's name in the JACK graph, unique in the session
    };

    /// Announces the program to the session manager that NSM_URL names, and waits up to five seconds for its request to
    /// open a session. Null if NSM_URL is not set, or if the manager refuses the program or does not answer; the last
    /// two are reported.
    static std::unique_ptr<SessionManager> announce(const Report& report);

    SessionManager() = default;
    virtual ~SessionManager() = default;

    SessionManager(const SessionManager&) = delete;
    SessionManager& operator=(const SessionManager&) = delete;

    const Opening& getOpening() const { return opening; }

    /// The replies to the requests to open and to save; `error` is empty if that was done. Any thread.
    virtual void replyOpened(const std::string& error) = 0;
    virtual void replySaved(const std::string& error) = 0;

    /// From now on requests are received; each request to save calls `saveRequested` on a thread of this object.
    virtual void startReceiving(std::function<void()> saveRequested) = 0;
    virtual void stopReceiving() = 0;

protected:
    Opening opening;
};
}  // namespace Host
