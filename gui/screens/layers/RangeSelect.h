#pragma once

#include <QObject>
#include <QPointer>
#include <functional>

#include "gui/musickeyboard/MusicKeyboardCtl.h"

namespace Gui::Layers
{
/// Takes the range of a layer from the music keyboard, which does not play meanwhile: a left click sets the lowest
/// note, a right click the highest. It ends by itself when both were set, and by Escape. The GUI thread.
class RangeSelect final : public QObject, public Output::MusicKeyboardCtl::Listener
{
public:
    /// A note that was clicked; -1 for the end that was not.
    using Chosen = std::function<void(int lowNote, int highNote)>;

    ~RangeSelect() override { end(); }

    std::function<void()> onEnd;

    /// Instead of what was begun before.
    void begin(Output::MusicKeyboardCtl& clickedKeyboard, Chosen chosen);
    void end();
    bool isActive() const { return active; }

    void keyPressed(int note, int velocity, Qt::MouseButton button) override;
    void keyReleased(int) override {}

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    QPointer<Output::MusicKeyboardCtl> keyboard;
    Listener* player = nullptr;  // the listener of before
    Chosen choose;
    bool active = false;
    bool hasLow = false;
    bool hasHigh = false;
};
}  // namespace Gui::Layers
