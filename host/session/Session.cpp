#include "host/session/Session.h"

#include <utility>

#include "host/common/InputError.h"

namespace Host
{
std::unique_ptr<Session> Session::join(RunOptions& options, const Tell& tell)
{
    auto manager = SessionManager::join(tell);
    if (!manager) return nullptr;
    std::unique_ptr<Session> session(new Session(std::move(manager)));
    session->open(options, tell);
    return session;
}

Session::Session(std::unique_ptr<SessionManager> sessionManager) : manager(std::move(sessionManager)) {}

Session::~Session()
{
    if (!answered) manager->answerOpened("Orvane could not start");
}

void Session::open(RunOptions& options, const Tell& tell)
try {
    const SessionManager::Opening& opening = manager->getOpening();
    folder.emplace(opening.folder);
    if (options.setup == Setup()) options.setup = folder->getSetup(tell);
    options.client = opening.client;
    options.session = this;
} catch (const InputError& reason) {
    answered = true;
    manager->answerOpened(reason.what());
    throw;
}

void Session::begin(Event& wakeUp)
{
    answered = true;
    manager->answerOpened("");
    manager->listen([this, &wakeUp] {
        saveWanted.store(true);
        wakeUp.set();
    });
}

void Session::serve(Backend::OrvMessageManager& backend)
{
    if (saveWanted.exchange(false)) manager->answerSaved(folder->save(backend.sendSaveState()));
}
}  // namespace Host
