#pragma once

namespace Gui
{
/// Where the keys of the computer go.
enum class KeyTarget {
    music,     ///< they play
    text,      ///< into a text, or to a dialog in which text can be typed
    elsewhere  ///< to another program
};
}  // namespace Gui
