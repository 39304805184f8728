#pragma once

#include "backend/files/Bank.h"
#include "backend/files/RegistrySettings.h"
#include "backend/model/MidiPort.h"
#include "backend/model/Program.h"
#include "backend/model/ScreenState.h"

namespace Gui
{
class OrvGuiIF;
}

namespace Backend
{
class OrvIF;

/// What a window knows when it is made; of every later change it is told.
struct GuiStart {
    RegistrySettings settings{};
    Bank bank{};
    Program program{};
    MidiEngine::MidiInputPorts inputs{};
    MidiEngine::MidiOutputPorts outputs{};
    ScreenState screens{};
    bool isVstPlugin = false;  ///< whether a host of plug-ins shows it, which places it itself
};

/// Makes the GUI of a backend; the caller deletes it. On the backend thread, so it makes nothing of a window yet.
using GuiFactory = Gui::OrvGuiIF* (*)(OrvIF& orv, GuiStart start);
}  // namespace Backend
