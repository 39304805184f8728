#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "host/common/Report.h"

namespace Host
{
/// The session manager by which this program was started, if it was: it says where the program keeps what belongs to
/// the session, and when it is to be saved. The way of speaking is that of the Non Session Manager, API 1.0, by Open
/// Sound Control over UDP. One object per process.
class SessionManager
{
public:
    /// What it asks for first.
    struct Opening {
        std::filesystem::path folder;  ///< of this session and program alone; absolute; it may be there or not
        std::string client;            ///< the name to have among the audio programs, unique in the session
    };

    /// Announces the program to the session manager that NSM_URL names, and waits until it opens a session. Null if
    /// there is none, or it does not want us or does not answer, which is told.
    static std::unique_ptr<SessionManager> join(const Report& report);

    ~SessionManager();

    SessionManager(const SessionManager&) = delete;
    SessionManager& operator=(const SessionManager&) = delete;

    const Opening& getOpening() const { return opening; }

    /// The answers it waits for. An empty reason says that all went well. Any thread.
    void replyOpened(const std::string& whyNot);
    void replySaved(const std::string& whyNot);

    /// From now on it is listened to; `saveRequested` is called on a thread of this object's.
    void listen(std::function<void()> saveRequested);
    void stopListening();

private:
    struct Osc;

    explicit SessionManager(std::unique_ptr<Osc> connection);
    bool isOpened(const Report& report);

    std::unique_ptr<Osc> osc;
    Opening opening;
};
}  // namespace Host
