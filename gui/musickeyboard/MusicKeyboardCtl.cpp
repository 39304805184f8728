#include "gui/musickeyboard/MusicKeyboardCtl.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QStringList>
#include <algorithm>
#include <chrono>
#include <utility>

#include "api/GuiContext.h"
#include "backend/values/Note.h"
#include "gui/framework/GdiManager.h"
#include "gui/framework/Properties.h"
#include "gui/musickeyboard/KeyboardPainter.h"

namespace Gui::Output
{
using Backend::MidiEngine::Octave;
using Backend::MidiEngine::OrvMidiMessage;

namespace
{
constexpr auto FRAME = std::chrono::milliseconds(16);
constexpr int LOUDEST = 127;

QString nameOf(int note) { return QString::fromStdString(Backend::MidiEngine::getNoteName(note, Octave::with)); }

/// A quadratic curve: the middle of a key is loud already, and the front third changes little.
int velocityAt(const QRect& key, int y)
{
    const double fromFront = 1.0 - static_cast<double>(y) / (key.height() - 1);
    return LOUDEST - static_cast<int>((LOUDEST - 1) * fromFront * fromFront);
}
}  // namespace

MusicKeyboardCtl::MusicKeyboardCtl(GuiContext& guiContext, QWidget* parent) : QWidget(parent), context(guiContext)
{
    rescale();
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);  // to notice that the button was released elsewhere
    setAccessibleName(tr("Music keyboard"));
    Property::setHelp(
        *this,
        tr("Shows the notes that sound. Click a key to play it: velocity 1 at the back, 127 at the front edge."));
    frame.setSingleShot(true);
    connect(&frame, &QTimer::timeout, this, [this] { showFrame(); });
}

void MusicKeyboardCtl::rescale()
{
    const GdiManager& gdi = context.getGdiManager();
    keys = KeyOutlines(gdi.getScale());
    setFixedSize(keys.getWidth(), keys.getWhiteHeight() + gdi.px(KeyboardPainter::LABEL_HEIGHT));
    update();
}

MusicKeyboardCtl::Listener* MusicKeyboardCtl::setListener(Listener* newListener)
{
    release();
    return std::exchange(listener, newListener);
}

// --- what sounds

void MusicKeyboardCtl::displayMidiOutputEvent(const OrvMidiMessage& event)
{
    const auto output = static_cast<std::size_t>(event.getOutput());
    if (output < silentOutputs.size() && silentOutputs.test(output)) {
        unsent.take(event);
        return changed();
    }
    notes.take(event);
    const int note = event.getD1();
    if (event.isNoteOn() && notes.isSounding(note)) started.set(static_cast<std::size_t>(note));
    changed();
}

void MusicKeyboardCtl::clearHilight()
{
    notes.clear();
    unsent.clear();
    started.reset();
    changed();
}

void MusicKeyboardCtl::handleMidiOutputPortsChanged(const Backend::MidiEngine::MidiOutputPorts& ports)
{
    notes.handleMidiOutputPortsChanged(ports);
    silentOutputs.reset();
    for (std::size_t output = 0; output < std::min(ports.size(), silentOutputs.size()); ++output)
        silentOutputs.set(output, !ports[output].enabled || !ports[output].found || ports[output].couldNotOpen);
    for (int output = 0; output < SoundingNotes::OUTPUTS; ++output)
        if (!silentOutputs.test(static_cast<std::size_t>(output))) unsent.clearOutput(output);
    changed();
}

bool MusicKeyboardCtl::isLit(int note) const
{
    return note >= 0 && note < KeyOutlines::NOTES && lit.test(static_cast<std::size_t>(note));
}

bool MusicKeyboardCtl::isHollow(int note) const
{
    return note >= 0 && note < KeyOutlines::NOTES && hollow.test(static_cast<std::size_t>(note));
}

QString MusicKeyboardCtl::getSoundingNames() const
{
    QStringList names;
    for (int note = 0; note < KeyOutlines::NOTES; ++note)
        if (isLit(note)) names << nameOf(note);
    return names.join(' ');
}

/// The first change is shown at once, what follows within the frame at its end.
void MusicKeyboardCtl::changed()
{
    isStale = true;
    if (!frame.isActive()) showFrame();
}

void MusicKeyboardCtl::showFrame()
{
    if (!std::exchange(isStale, false)) return;
    frame.start(FRAME);
    const Keys before = lit;
    for (int note = 0; note < KeyOutlines::NOTES; ++note) {
        const auto key = static_cast<std::size_t>(note);
        lit[key] = notes.isSounding(note) || started[key];
        const bool isUnsent = unsent.isSounding(note);
        const bool isOther = lit[key] != before[key] || hollow[key] != isUnsent;
        hollow[key] = isUnsent;
        if (isOther) update(keys.keyRectangle(note));
    }
    isStale = started.any();  // some of them may have ended
    started.reset();
    if (lit != before) accessibleValueChanged(*this, getSoundingNames());
}

// --- the mouse

void MusicKeyboardCtl::mousePressEvent(QMouseEvent* event)
{
    const int note = keys.noteAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton) {
        isDragged = true;
        hold(event->position().toPoint());
    } else if (event->button() == Qt::RightButton && note != NO_KEY && listener != nullptr) {
        listener->keyPressed(note, velocityAt(keys.keyRectangle(note), event->position().toPoint().y()),
                             Qt::RightButton);
    }
}

void MusicKeyboardCtl::mouseMoveEvent(QMouseEvent* event)
{
    if (!event->buttons().testFlag(Qt::LeftButton))
        release();
    else if (isDragged)
        hold(event->position().toPoint());
}

void MusicKeyboardCtl::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) release();
}

/// Events that release the key although the button is down.
bool MusicKeyboardCtl::event(QEvent* event)
{
    switch (event->type()) {
        case QEvent::Hide:
        case QEvent::UngrabMouse:
        case QEvent::WindowBlocked:
        case QEvent::WindowDeactivate:
            release();
            break;
        default:
            break;
    }
    return QWidget::event(event);
}

/// Holds the key at that point instead of the one held now; outside the keys none.
void MusicKeyboardCtl::hold(const QPoint& point)
{
    const int note = keys.noteAt(point);
    if (note == heldKey) return;
    const int before = std::exchange(heldKey, note);
    for (const int changed : {before, note})
        if (changed != NO_KEY) update(keys.keyRectangle(changed));
    if (listener == nullptr) return;
    if (before != NO_KEY) listener->keyReleased(before);
    if (note != NO_KEY) listener->keyPressed(note, velocityAt(keys.keyRectangle(note), point.y()), Qt::LeftButton);
}

void MusicKeyboardCtl::release()
{
    isDragged = false;
    const int note = std::exchange(heldKey, NO_KEY);
    if (note == NO_KEY) return;
    update(keys.keyRectangle(note));
    if (listener != nullptr) listener->keyReleased(note);
}

// --- drawing

void MusicKeyboardCtl::paintEvent(QPaintEvent* event)
{
    const GdiManager& gdi = context.getGdiManager();
    QPainter canvas(this);
    KeyboardPainter painter(canvas, gdi, keys);
    canvas.fillRect(event->rect(), gdi.getBrush(GdiManager::Role::background).getHandle());
    for (int note = 0; note < KeyOutlines::NOTES; ++note)
        if (event->region().intersects(keys.keyRectangle(note))) painter.paintKey(note, stateOf(note));
    if (event->rect().bottom() >= keys.getWhiteHeight()) painter.paintLabels();
}

KeyState MusicKeyboardCtl::stateOf(int note) const
{
    if (isLit(note)) return KeyState::sounding;
    if (isHollow(note)) return KeyState::seen;
    return note == heldKey ? KeyState::held : KeyState::up;
}
}  // namespace Gui::Output
