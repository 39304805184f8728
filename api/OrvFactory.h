#pragma once

#include <memory>
#include <string>

#include "api/MidiPlayer.h"
#include "api/OrvIF.h"
#include "platform/Export.h"

namespace Gui
{
class OrvGuiIF;
}

namespace Backend
{
struct GuiStart;

/// Makes the window's object of a backend; the caller deletes it. On the backend thread, so it creates no widget yet.
using GuiFactory = Gui::OrvGuiIF* (*)(OrvIF& orv, GuiStart start);

/// Makes backends. Any thread.
class ORV_API OrvFactory
{
public:
    /// A backend with no thread running yet, or null when memory runs out. The caller deletes it; `player` must
    /// outlive it. `applicationName` names the place of its settings (one that is no file name has none), and
    /// `retroRecordOption` says whether the retrospective record of an earlier run goes on, and this one is kept for a
    /// later run; otherwise it starts clean and goes with the backend.
    static OrvIF* createOrv(const std::string& applicationName, MidiEngine::MidiPlayer& player, bool retroRecordOption);

    /// The same, owned: it is deleted with the pointer.
    static std::unique_ptr<OrvIF> makeOrv(const std::string& applicationName, MidiEngine::MidiPlayer& player,
                                          bool retroRecordOption)
    {
        return std::unique_ptr<OrvIF>(createOrv(applicationName, player, retroRecordOption));
    }

    /// What `OrvIF::createOrvGui` makes from now on, in backends created later: the library's own window, unless a host
    /// brings another. Null for none. Before any thread creates a backend.
    static void setGuiFactory(GuiFactory factory);
};
}  // namespace Backend
