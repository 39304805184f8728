#pragma once

#include "platform/Message.h"

namespace Backend
{
class OrvIF;

/// Executes a command of `OrvMessage` on the backend thread.
void executeOrvCommand(OrvIF& orv, Message& message);
}  // namespace Backend
