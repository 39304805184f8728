#pragma once

#include "gui/musickeyboard/MusicKeyboardCtl.h"

namespace Backend
{
class OrvMessageManager;
}

namespace Gui::Output
{
/// Plays the keys that the left button presses on the music keyboard, through the layers, or to the default output
/// if no layer takes the note.
class KeyPlayer final : public MusicKeyboardCtl::Listener
{
public:
    explicit KeyPlayer(Backend::OrvMessageManager& backend) : commands(backend) {}

    void keyPressed(int note, int velocity, Qt::MouseButton button) override;
    void keyReleased(int note) override;

private:
    Backend::OrvMessageManager& commands;
};
}  // namespace Gui::Output
