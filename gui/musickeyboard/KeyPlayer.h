#pragma once

#include "gui/musickeyboard/MusicKeyboardCtl.h"

namespace Backend
{
class OrvMessageManager;
}

namespace Gui::Output
{
/// Plays what the left button presses on the music keyboard: through the layers, to the outputs and channels that they
/// name, or else to the default output.
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
