#pragma once

#include <atomic>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "api/OrvMessageManager.h"
#include "host/common/Report.h"
#include "host/common/SetupFile.h"
#include "host/session/SessionFolder.h"
#include "host/session/SessionManager.h"
#include "platform/Event.h"

namespace Host
{
/// The session of a session manager (NSM) that started this program and saves it together with others. See
/// docs/behaviour/sessions.md.
class Session
{
public:
    /// Announces the program to the session manager and opens the session: from now on the user's folders of this
    /// process are the session's. `setup` becomes what the session saved, unless it names something to load; `client`
    /// becomes the program's name in the JACK graph. Null where no session manager started the program. To be called
    /// before anything reads the user's folders. Throws InputError if the session cannot be opened; the session manager
    /// gets the same text.
    static std::unique_ptr<Session> open(Setup& setup, std::string& client, const Report& report);

    /// Replies to a session manager that still waits for the session to open that it did not.
    ~Session();

    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// To be called when the program plays: the session manager gets its reply. From now on requests to save are
    /// received, and each sets `wakeUp`. Once.
    void begin(Event& wakeUp);

    /// Saves the session if that was requested, and replies. On the control thread.
    void serve(Backend::OrvMessageManager& backend);

    /// The file of the program as it was saved. Any thread.
    std::filesystem::path getProgramPath() const { return folder->getProgramPath(); }

    /// Receives nothing any more. To be called while `wakeUp` exists; a request that waits gets no reply.
    void end() { manager->stopReceiving(); }

private:
    explicit Session(std::unique_ptr<SessionManager> sessionManager);
    void openFolder(Setup& setup, std::string& client, const Report& report);

    std::unique_ptr<SessionManager> manager;
    std::optional<SessionFolder> folder;
    std::atomic<bool> saveRequested{false};
    bool hasReplied = false;  // to the request to open
};
}  // namespace Host
