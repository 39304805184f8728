#pragma once

namespace Gui::Output
{
class MusicKeyboardCtl;

/// From now on a screen reader is told of a music keyboard's sounding notes as its value. Once is enough.
void installKeyboardAccessibility();

/// The value has changed.
void tellSoundingNames(MusicKeyboardCtl& keyboard);
}  // namespace Gui::Output
