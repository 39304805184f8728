#pragma once

namespace Gui
{
class OrvGuiIF;
}

namespace Backend
{
class OrvIF;
struct GuiStart;

/// Makes the GUI of a backend; the caller deletes it. On the backend thread, so it creates no widget yet.
using GuiFactory = Gui::OrvGuiIF* (*)(OrvIF& orv, GuiStart start);
}  // namespace Backend
