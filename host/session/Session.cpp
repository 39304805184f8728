#include "host/session/Session.h"

#include <utility>

#include "host/common/InputError.h"

namespace Host
{
std::unique_ptr<Session> Session::open(Setup& setup, std::string& client, const Report& report)
{
    auto manager = SessionManager::announce(report);
    if (!manager) return nullptr;
    std::unique_ptr<Session> session(new Session(std::move(manager)));
    session->openFolder(setup, client, report);
    return session;
}

Session::Session(std::unique_ptr<SessionManager> sessionManager) : manager(std::move(sessionManager)) {}

Session::~Session()
{
    if (!hasReplied) manager->replyOpened("Orvane could not start");
}

void Session::openFolder(Setup& setup, std::string& client, const Report& report)
try {
    const SessionManager::Opening& opening = manager->getOpening();
    folder.emplace(opening.folder);
    if (setup == Setup()) setup = folder->getSetup(report);
    client = opening.client;
} catch (const InputError& reason) {
    hasReplied = true;
    manager->replyOpened(reason.what());
    throw;
}

void Session::begin(Event& wakeUp)
{
    hasReplied = true;
    manager->replyOpened("");
    manager->startReceiving([this, &wakeUp] {
        saveRequested.store(true);
        wakeUp.set();
    });
}

void Session::serve(Backend::OrvMessageManager& backend)
{
    if (saveRequested.exchange(false)) manager->replySaved(folder->save(backend.sendSaveState()));
}
}  // namespace Host
