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
    /// Makes a backend without a running thread; null if memory runs out. The caller deletes it; `player` must outlive
    /// it. `applicationName` is the name of its settings (without a valid file name nothing is stored). With
    /// `retroRecordOption` the retrospective record of an earlier run is continued, and this one is kept for a later
    /// run; otherwise it starts empty and is deleted with the backend.
    static OrvIF* createOrv(const std::string& applicationName, MidiEngine::MidiPlayer& player, bool retroRecordOption);

    /// The same as a smart pointer.
    static std::unique_ptr<OrvIF> makeOrv(const std::string& applicationName, MidiEngine::MidiPlayer& player,
                                          bool retroRecordOption)
    {
        return std::unique_ptr<OrvIF>(createOrv(applicationName, player, retroRecordOption));
    }

    /// The factory for `OrvIF::createOrvGui` in backends that are made from now on: by default the library's own
    /// window; null for none. To be called before any thread makes a backend.
    static void setGuiFactory(GuiFactory factory);
};
}  // namespace Backend
