#pragma once

#include <cstdint>

#include "platform/Export.h"

class WindowHandle;

/// The global keyboard: a library of its own that captures keys while other programs' windows have the focus, and posts
/// them to our window (keyboardhook/KeyboardHookMessages.h). It exports these six functions only. They may be called on
/// any thread, and what they set is in effect when they return. Without an X server, where the system is not Windows,
/// they do nothing.
///
/// While it is on, all keys of the keyboard (keyboardhook/KeyTable.h) are captured except the excluded ones, those that
/// another program has grabbed already, and single combinations that another program has grabbed (if the desktop has
/// Super with L, L with other modifiers is captured). While a window of this process has the focus nothing is captured:
/// that window gets the key events of the window system, and none twice. Two exceptions: control keys are always
/// captured and never posted, and every key is captured that is pressed while a captured key is held.
///
/// A key that is down when it stops being captured is posted as up. A key that was down before it was captured is
/// ignored until it is pressed again. Codes are virtual keys as in `Key`; others are ignored. Unloading the library, or
/// the end of the process, ends the capture. On Windows the library stays in memory until the capture is off and there
/// is no control key; no program can have grabbed a key there, so all that is said of grabs does not apply.
extern "C" {
/// The window that gets the keys and the changes, null for none. The handle is copied.
ORV_API void setWindowHandle(const WindowHandle* window);

/// Captures keys if `on` is not 0. Returns null on success, else one line that says why keys are not captured, or, on a
/// Wayland desktop, why only some are; the text lives as long as the library.
ORV_API const char* setEnabled(int on);

/// A key that is not captured.
ORV_API void setExcludeKey(std::int32_t virtualKey);
ORV_API void clearExclude();

/// A key that switches the capture on and off; each change is posted.
ORV_API void addControlKey(std::int32_t virtualKey);
ORV_API void clearControlKeys();
}
