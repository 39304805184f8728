#pragma once

#include <cstdint>
#include <string>

#include "backend/values/RelativeFixedValue.h"
#include "platform/Export.h"

class QWidget;

namespace Gui
{
/// The host's side of the window: its parent, and notifications of the host. A host derives from it and passes it to
/// `OrvGuiIF::create`; it must exist until `destroy`. All operations are called on the GUI thread. Each window of a
/// process has its own.
class ORV_API ParentWindow
{
public:
    virtual ~ParentWindow() = default;

    /// For a host built on Qt: the parent widget of the window, or null.
    virtual QWidget* getWidget() { return nullptr; }
    /// For any other host: the X window to place it in; 0 for a window of its own.
    virtual std::uintptr_t getNativeWindow() { return 0; }

    /// The window has a new size, in logical pixels. The host is to resize its frame, or the window is cut off.
    virtual void windowResized(int width, int height) = 0;
    /// The host is to move the window with its frame, in logical pixels; a blank value leaves that axis unchanged.
    virtual void moveWindow(const RelativeFixedValue& x, const RelativeFixedValue& y) = 0;

    /// The window is to be shown at this scale, in percent; `width` and `height` are its natural size at 100 percent,
    /// in logical pixels. Returns the scale at which the host shows it, so that nothing is out of reach. Called before
    /// `windowResized`, whenever the scale changes, and by `OrvGuiIF::refit`.
    virtual int fitScale(int percent, [[maybe_unused]] int width, [[maybe_unused]] int height) { return percent; }
    /// When the window opens: the height that the user has given it (`OrvGuiIF::setHeight`), in logical pixels.
    virtual void heightChosen([[maybe_unused]] int height) {}
    /// Whether the keys of the computer play now.
    virtual void keysPlayChanged([[maybe_unused]] bool on) {}

    /// Notifications for a host that has switches of its own, or its own frame. The last two also come when the window
    /// opens, before it is made.
    virtual void systemPanelShown([[maybe_unused]] bool on) {}
    virtual void globalKeyboardChanged([[maybe_unused]] bool on) {}
    virtual void alwaysOnTopChanged([[maybe_unused]] bool on) {}
    virtual void useSkinBorderChanged([[maybe_unused]] bool on) {}
    /// The file name of the bank, when the window opens and when another bank is loaded.
    virtual void documentChanged([[maybe_unused]] const std::string& fileName) {}
};
}  // namespace Gui
