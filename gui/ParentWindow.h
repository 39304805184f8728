#pragma once

#include <cstdint>

#include "backend/values/RelativeFixedValue.h"
#include "platform/Export.h"

class QWidget;

namespace Gui
{
/// The host's side of the window: where it stands, and what its surroundings are told. A host derives from it and gives
/// it to `OrvGuiIF::create`; it must live until `destroy`. All operations are called on the GUI thread. Several windows
/// of a process have one each.
class ORV_API ParentWindow
{
public:
    virtual ~ParentWindow() = default;

    /// A host built on Qt: the widget in which the window stands, or null.
    virtual QWidget* getWidget() { return nullptr; }
    /// Any other host: its window, by the number that the X server gave it; 0 for a window that stands by itself.
    virtual std::uintptr_t getNativeWindow() { return 0; }

    /// The window has a new size, in logical pixels. The surroundings are to follow: what does not fit is cut off.
    virtual void windowResized(int width, int height) = 0;
    /// The window is to be moved on the screen, with its surroundings, in logical pixels; a blank value leaves it along
    /// that axis.
    virtual void moveWindow(const RelativeFixedValue& x, const RelativeFixedValue& y) = 0;

    /// Notices, for a host that has switches or an own frame for it.
    virtual void systemPanelShown([[maybe_unused]] bool on) {}
    virtual void globalKeyboardChanged([[maybe_unused]] bool on) {}
    virtual void alwaysOnTopChanged([[maybe_unused]] bool on) {}
    virtual void useSkinBorderChanged([[maybe_unused]] bool on) {}
};
}  // namespace Gui
