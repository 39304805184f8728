#pragma once

#include <cstdint>

#include "platform/Export.h"

class WindowHandle;

/// The global keyboard: a library of its own that takes keys from the windows of other programs and posts them to ours
/// (keyboardhook/KeyboardHookMessages.h). These six functions are all it shows. They may be called on any thread, and
/// what they ask for holds when they return. Without an X server they do nothing.
///
/// While it is on, all keys of the board (keyboardhook/KeyTable.h) are taken but the excluded ones, those that another
/// program has taken already, and the combinations that it has (a desktop's Super with L leaves L to us). While a
/// window of our own process has the focus nothing is taken: that window gets its keys on the usual road, and gets none
/// twice. Exceptions are the control keys, which are always taken and never posted, and whatever is pressed while a
/// taken key is still held.
///
/// A key that is down when it stops being taken is posted as coming up, and one that was down before does not count
/// until it is pressed again. Codes are virtual keys as in `Key`; others are ignored. Unloading the library, or the end
/// of the process, gives every key back.
extern "C" {
/// Who gets the keys and the changes, null for nobody. The handle is copied.
ORV_API void setWindowHandle(const WindowHandle* window);

/// Takes keys if `on` is not 0. Returns null if all is well, else one line that says why keys are not taken, or, on a
/// Wayland desktop, why not all are; it lives as long as the library.
ORV_API const char* setEnabled(int on);

/// Leaves a key to the other programs.
ORV_API void setExcludeKey(std::int32_t virtualKey);
ORV_API void clearExclude();

/// A key that switches the taking of keys on and off, whatever it was; each such change is posted.
ORV_API void addControlKey(std::int32_t virtualKey);
ORV_API void clearControlKeys();
}
