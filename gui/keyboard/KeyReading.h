#pragma once

#include "backend/values/Key.h"

class QKeyEvent;

namespace Gui
{
/// The key of an event, by its position on the keyboard, so that the piano rows are the same keys on every layout, with
/// the modifiers of the event. Where the platform does not report positions, it is the key of the US layout that types
/// the same character, and of a left and right pair the left one. Code -1 for an unknown key.
Key readKey(const QKeyEvent& event);
}  // namespace Gui
