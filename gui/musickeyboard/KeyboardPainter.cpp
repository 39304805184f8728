#include "gui/musickeyboard/KeyboardPainter.h"

#include <QPainter>

#include "backend/values/Note.h"
#include "gui/framework/GdiManager.h"
#include "gui/musickeyboard/KeyOutlines.h"

namespace Gui::Output
{
using Role = GdiManager::Role;

namespace
{
constexpr int LABEL_WIDTH = 40;
constexpr int OCTAVE = 12;
constexpr int MIDDLE_C = 60;
constexpr QSize MARK(3, 4);
constexpr int MARK_ABOVE_FRONT = 8;
constexpr int HOLLOW_FRAME = 2;

QColor faceOf(const GdiManager& gdi, KeyState state, WindowsLib::Colour up)
{
    if (state == KeyState::up || state == KeyState::seen) return WindowsLib::toQColor(up);
    return gdi.getColour(state == KeyState::sounding ? Role::selectedButton : Role::text);
}
}  // namespace

void KeyboardPainter::paintKey(int note, KeyState state)
{
    if (KeyOutlines::isBlack(note))
        paintBlackFace(note, state);
    else
        paintWhiteFace(note, state);
    if (state == KeyState::seen) paintHollow(note);
    if (note == MIDDLE_C) markMiddleC();
}

/// One pixel of black stays free between two keys.
void KeyboardPainter::paintWhiteFace(int note, KeyState state)
{
    const QRect key = keys.keyRectangle(note);
    const QColor gap = WindowsLib::toQColor(GdiManager::BLACK);
    painter.fillPath(keys.keyOutline(note), faceOf(gdi, state, GdiManager::LIGHT_GREY));
    painter.fillRect(QRect(key.right(), key.top(), 1, key.height()), gap);
    painter.fillRect(QRect(key.left(), key.bottom(), key.width(), 1), gap);
}

void KeyboardPainter::paintBlackFace(int note, KeyState state)
{
    const QRect key = keys.keyRectangle(note);
    painter.fillRect(key, WindowsLib::toQColor(GdiManager::BLACK));
    painter.fillRect(key.adjusted(1, 0, -1, -1), faceOf(gdi, state, GdiManager::DARK_DARK_GREY));
}

/// A frame near the front of the key, where no other key covers it.
void KeyboardPainter::paintHollow(int note)
{
    const QRect key = keys.keyRectangle(note);
    const int line = gdi.px(HOLLOW_FRAME);
    QRect frame = key.adjusted(1, 0, -1, -1);
    if (!KeyOutlines::isBlack(note)) frame.setTop(keys.getBlackHeight());
    painter.fillRect(frame, gdi.getColour(Role::unselectedButton));
    painter.fillRect(
        frame.adjusted(line, line, -line, -line),
        WindowsLib::toQColor(KeyOutlines::isBlack(note) ? GdiManager::DARK_DARK_GREY : GdiManager::LIGHT_GREY));
}

void KeyboardPainter::markMiddleC()
{
    const QRect key = keys.keyRectangle(MIDDLE_C);
    const QSize mark = gdi.px(MARK);
    const QPoint corner(key.left() + (key.width() - 1 - mark.width()) / 2, key.bottom() - gdi.px(MARK_ABOVE_FRONT));
    painter.fillRect(QRect(corner, mark), WindowsLib::toQColor(GdiManager::DARK_GREEN));
}

void KeyboardPainter::paintLabels()
{
    painter.setFont(gdi.getFont(GdiManager::FontRole::font3));
    for (int note = 0; note < KeyOutlines::NOTES; note += OCTAVE) {
        const std::string name = Backend::MidiEngine::getNoteName(note, Backend::MidiEngine::Octave::with);
        painter.setPen(gdi.getColour(note == MIDDLE_C ? Role::text : Role::label));
        painter.drawText(QRect(keys.leftEdge(note), keys.getWhiteHeight(), gdi.px(LABEL_WIDTH), gdi.px(LABEL_HEIGHT)),
                         Qt::AlignLeft | Qt::AlignVCenter, QString::fromStdString(name));
    }
}
}  // namespace Gui::Output
