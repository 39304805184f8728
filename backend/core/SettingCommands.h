#pragma once

#include "api/OrvIF.h"
#include "backend/files/RegistrySettings.h"
#include "backend/messages/GuiMessages.h"
#include "backend/messages/SettingMessages.h"

namespace Backend
{
/// Changes a setting, and notifies the window and the host if its row says so. A value outside the range is ignored.
/// The backend thread.
template <const auto& row>
void changeSetting(OrvIF& orv, const Settings::ValueOf<row>& value)
{
    if (!row.allows(value)) return;
    orv.getRegistrySettings().set<row>(value);
    if constexpr (row.notice == Settings::Notice::own) notify(orv.getGuiWindowHandle(), SETTING<row>, value);
    if constexpr (row.notice == Settings::Notice::all || row.notice == Settings::Notice::host)
        notify(orv.getGuiWindowHandle(), GuiMessage::SETTINGS, orv.getRegistrySettings());
    if constexpr (row.notice == Settings::Notice::host) orv.passHostSettings();
}

/// Executes the command of a setting that only has to be stored, without an effect in the backend. False if there is
/// none of that number.
bool executeSettingCommand(OrvIF& orv, Message& message);
}  // namespace Backend
