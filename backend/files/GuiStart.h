#pragma once

#include <optional>

#include "api/Bank.h"
#include "api/HostState.h"
#include "backend/files/RegistrySettings.h"
#include "backend/model/MidiPort.h"
#include "backend/model/Program.h"
#include "backend/model/ScreenState.h"

namespace Backend
{
/// What a window needs when it is made; it is notified of every later change.
struct GuiStart {
    RegistrySettings settings{};
    Bank bank{};
    Program program{};
    MidiEngine::MidiInputPorts inputs{};
    MidiEngine::MidiOutputPorts outputs{};
    ScreenState screens{};
    bool isVstPlugin = false;                      ///< a plug-in host shows the window and places it
    std::optional<HostOverrides> hostOverrides{};  ///< none if the host executes no settings
};
}  // namespace Backend
