#pragma once

#include <atomic>
#include <memory>
#include <optional>

#include "api/OrvMessageManager.h"
#include "host/run/RunOptions.h"
#include "host/session/SessionFolder.h"
#include "host/session/SessionManager.h"
#include "platform/Event.h"

namespace Host
{
/// A session of several programs, in which this one plays its part: a session manager started it and saves it with the
/// others. See docs/decisions/0046-sessions.md.
class Session
{
public:
    /// The session that the options are played in from now on, under its name in the JACK graph and with what it saved;
    /// files that the options name come before that. Null where no session manager started the program. Before
    /// anything else looks at the user's folders. Throws InputError if the session cannot be opened, which the session
    /// manager hears too.
    static std::unique_ptr<Session> join(RunOptions& options, const Report& report);

    /// A session manager that is still waiting hears that it did not open.
    ~Session();

    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// It plays: the session manager hears so. From here it may want it saved, which `wakeUp` tells. Once.
    void begin(Event& wakeUp);

    /// Saves it if that is wanted, and answers. On the control thread.
    void serve(Backend::OrvMessageManager& backend);

    /// Before `wakeUp` goes. What is wanted now is not answered any more.
    void end() { manager->stopListening(); }

private:
    explicit Session(std::unique_ptr<SessionManager> sessionManager);
    void open(RunOptions& options, const Report& report);

    std::unique_ptr<SessionManager> manager;
    std::optional<SessionFolder> folder;
    std::atomic<bool> saveRequested{false};
    bool answered = false;  // whether it opened
};
}  // namespace Host
