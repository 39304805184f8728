#pragma once

#include "api/OrvFactory.h"
#include "platform/Export.h"

namespace Gui
{
class ORV_API OrvGuiFactory
{
public:
    /// Makes no Qt object; those are made in `OrvGuiIF::create`. The caller deletes it.
    static OrvGuiIF* createOrvGui(Backend::OrvIF& orv, Backend::GuiStart start);
};
}  // namespace Gui
