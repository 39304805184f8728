#pragma once

#include <QTimer>
#include <QWidget>
#include <bitset>

#include "backend/values/OrvMidiMessage.h"
#include "gui/framework/AccessibleControl.h"
#include "gui/musickeyboard/KeyOutlines.h"
#include "gui/musickeyboard/SoundingNotes.h"

namespace Gui
{
class GuiContext;
}

namespace Gui::Output
{
enum class KeyState;

/// A piano of all 128 notes. Keys light while their notes sound, and the mouse plays it: a key is held while the left
/// button is, and dragging plays from key to key. However many events come, it paints once a frame and only keys that
/// changed; a note that is over within a frame is seen for one. Where the keys stand: `KeyOutlines`.
class MusicKeyboardCtl final : public QWidget, public AccessibleControl
{
public:
    /// Takes the clicks.
    class Listener
    {
    public:
        virtual ~Listener() = default;
        /// `velocity` is 1 to 127, the nearer to the front of the key the louder. The left and the right button.
        virtual void keyPressed(int note, int velocity, Qt::MouseButton button) = 0;
        /// Of the left button; also if the control is hidden, or the mouse is taken from it. No key stays down.
        virtual void keyReleased(int note) = 0;
    };

    MusicKeyboardCtl(GuiContext& guiContext, QWidget* parent);

    /// In place of the one before, which gets the release of what is held. Null for none. It must live until another
    /// takes its place or the control is gone.
    void setListener(Listener* newListener);

    /// An event on its way to an output.
    void displayMidiOutputEvent(const Backend::MidiEngine::OrvMidiMessage& event);
    void clearHilight();
    void handleMidiOutputPortsChanged(const Backend::MidiEngine::MidiOutputPorts& ports);

    /// Whether the key is drawn as sounding.
    bool isLit(int note) const;
    /// The names of the keys that are, "C4 E4", empty for none.
    QString getSoundingNames() const;

    QAccessible::Role getAccessibleRole() const override { return QAccessible::Graphic; }
    QString getAccessibleValue() const override { return getSoundingNames(); }
    bool isPressable() const override { return false; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    bool event(QEvent* event) override;

private:
    void hold(const QPoint& point);
    void release();
    void showFrame();
    void showSoon();
    KeyState stateOf(int note) const;

    static constexpr int NO_KEY = -1;
    using Keys = std::bitset<KeyOutlines::NOTES>;

    GuiContext& context;
    Listener* listener = nullptr;
    SoundingNotes notes;
    Keys struck;  // since the last frame
    Keys lit;     // as they are drawn
    int heldKey = NO_KEY;
    bool isDragged = false;  // the left button is down
    QTimer frame;
};
}  // namespace Gui::Output
