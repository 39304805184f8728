#pragma once

#include "backend/values/Key.h"

class QKeyEvent;

namespace Gui
{
/// The key of an event, by its place on the board, so that the piano rows lie in the same places on every layout, with
/// the modifiers that the event says are held. On a platform that does not tell places it is the key of the US layout
/// that types the same; left and right are then the left one. Code -1 for a key that no board has.
Key readKey(const QKeyEvent& event);
}  // namespace Gui
