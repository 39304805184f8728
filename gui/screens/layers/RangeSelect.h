#pragma once

#include <QObject>
#include <QPointer>
#include <functional>

#include "backend/model/NoteActivity.h"
#include "gui/musickeyboard/MusicKeyboardCtl.h"

namespace Gui::Layers
{
/// Takes the range of a layer from two notes that are played on any input, or from the music keyboard, which does not
/// play meanwhile: a left click sets the lowest note, a right click the highest. It ends by itself when both were set,
/// and by Escape. The GUI thread.
class RangeSelect final : public QObject, public Output::MusicKeyboardCtl::Listener
{
public:
    using Notes = Backend::MidiEngine::NoteActivity::Notes;
    /// The note for an end, -1 if it stays.
    using Chosen = std::function<void(int lowNote, int highNote)>;

    ~RangeSelect() override { end(); }

    std::function<void()> onEnd;

    /// Instead of what was begun before.
    void begin(Output::MusicKeyboardCtl& clickedKeyboard, Chosen chosen);
    void end();
    bool isActive() const { return active; }

    /// The notes that are down now, or were since the last call. To be called also while it is not active.
    void takePlayed(const Notes& notes);

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
    Notes down;
    int firstPlayed = -1;
};
}  // namespace Gui::Layers
