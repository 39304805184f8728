#pragma once

#include "platform/Message.h"

namespace Backend
{
class OrvIF;

/// Executes a command of `OrvMessage` on the backend thread.
void executeOrvCommand(OrvIF& orv, Message& message);

/// Whether a command uses the bank or a file, so that it must not be executed while a file is written.
bool waitsForFiles(unsigned int number);
}  // namespace Backend
