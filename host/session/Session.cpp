#include "host/session/Session.h"

#include <utility>

#include "host/common/InputError.h"

namespace Host
{
std::unique_ptr<Session> Session::join(RunOptions& options, const Report& report)
{
    auto manager = SessionManager::join(report);
    if (!manager) return nullptr;
    std::unique_ptr<Session> session(new Session(std::move(manager)));
    session->open(options, report);
    return session;
}

Session::Session(std::unique_ptr<SessionManager> sessionManager) : manager(std::move(sessionManager)) {}

Session::~Session()
{
    if (!answered) manager->replyOpened("Orvane could not start");
}

void Session::open(RunOptions& options, const Report& report)
try {
    const SessionManager::Opening& opening = manager->getOpening();
    folder.emplace(opening.folder);
    if (options.setup == Setup()) options.setup = folder->getSetup(report);
    options.client = opening.client;
    options.session = this;
} catch (const InputError& reason) {
    answered = true;
    manager->replyOpened(reason.what());
    throw;
}

void Session::begin(Event& wakeUp)
{
    answered = true;
    manager->replyOpened("");
    manager->listen([this, &wakeUp] {
        saveRequested.store(true);
        wakeUp.set();
    });
}

void Session::serve(Backend::OrvMessageManager& backend)
{
    if (saveRequested.exchange(false)) manager->replySaved(folder->save(backend.sendSaveState()));
}
}  // namespace Host
