#include "host/session/SessionManager.h"

namespace Host
{
std::unique_ptr<SessionManager> SessionManager::announce(const Report&) { return nullptr; }
}  // namespace Host
