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

/// A piano keyboard of 128 notes. Keys are lit while their notes sound, and the mouse plays them: a key is down while
/// the left button is, and dragging plays from key to key. A change is shown at once, further ones at most once a frame
/// and only the keys that changed; a note that ends within a frame is shown for one. The places of the keys are in
/// `KeyOutlines`.
class MusicKeyboardCtl final : public QWidget, public AccessibleControl
{
public:
    /// Notified of clicks.
    class Listener
    {
    public:
        virtual ~Listener() = default;
        /// `velocity` is 1 to 127, higher nearer to the front of the key. For the left and the right button.
        virtual void keyPressed(int note, int velocity, Qt::MouseButton button) = 0;
        /// The left button was released, the control was hidden or lost the mouse. Every press gets its release.
        virtual void keyReleased(int note) = 0;
    };

    MusicKeyboardCtl(GuiContext& guiContext, QWidget* parent);

    /// Replaces the listener and returns the old one, which gets the release of a held key. Null for none. It must live
    /// until it is replaced or the control is destroyed.
    Listener* setListener(Listener* newListener);

    /// An event on its way to an output.
    void displayMidiOutputEvent(const Backend::MidiEngine::OrvMidiMessage& event);
    void clearHilight();
    void handleMidiOutputPortsChanged(const Backend::MidiEngine::MidiOutputPorts& ports);

    /// The scale has changed.
    void rescale();
    const KeyOutlines& getOutlines() const { return keys; }

    /// Whether the key is drawn as sounding.
    bool isLit(int note) const;
    /// Whether its note is played, but by no output that can send it.
    bool isHollow(int note) const;
    /// The names of the keys that are lit, "C4 E4"; empty for none.
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
    void changed();
    KeyState stateOf(int note) const;

    static constexpr int NO_KEY = -1;
    using Keys = std::bitset<KeyOutlines::NOTES>;

    GuiContext& context;
    KeyOutlines keys;
    Listener* listener = nullptr;
    SoundingNotes notes;
    SoundingNotes unsent;  // those of outputs that cannot send
    std::bitset<SoundingNotes::OUTPUTS> silentOutputs;
    Keys started;  // note-ons since the last frame
    Keys lit;      // the keys drawn as sounding
    Keys hollow;
    int heldKey = NO_KEY;
    bool isStale = false;    // what is drawn may differ from what sounds
    bool isDragged = false;  // the left button is down
    QTimer frame;
};
}  // namespace Gui::Output
