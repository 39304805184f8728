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

QColor faceOf(const GdiManager& gdi, KeyState state, WindowsLib::Colour up)
{
    if (state == KeyState::up) return WindowsLib::toQColor(up);
    return gdi.getColour(state == KeyState::sounding ? Role::selectedButton : Role::text);
}
}  // namespace

void KeyboardPainter::paintKey(int note, KeyState state)
{
    if (KeyOutlines::isBlack(note))
        paintBlackFace(note, state);
    else
        paintWhiteFace(note, state);
    if (note == MIDDLE_C) markMiddleC();
}

/// One pixel of background stays free between two keys.
void KeyboardPainter::paintWhiteFace(int note, KeyState state)
{
    const QRect key = KeyOutlines::keyRectangle(note);
    const QColor ground = gdi.getColour(Role::background);
    painter.fillPath(KeyOutlines::keyOutline(note), faceOf(gdi, state, GdiManager::LIGHT_GREY));
    painter.fillRect(QRect(key.right(), key.top(), 1, key.height()), ground);
    painter.fillRect(QRect(key.left(), key.bottom(), key.width(), 1), ground);
}

void KeyboardPainter::paintBlackFace(int note, KeyState state)
{
    const QRect key = KeyOutlines::keyRectangle(note);
    painter.fillRect(key, gdi.getColour(Role::background));
    painter.fillRect(key.adjusted(1, 0, -1, -1), faceOf(gdi, state, GdiManager::DARK_DARK_GREY));
}

void KeyboardPainter::markMiddleC()
{
    const QRect key = KeyOutlines::keyRectangle(MIDDLE_C);
    const QPoint corner(key.left() + (key.width() - 1 - MARK.width()) / 2, key.bottom() - MARK_ABOVE_FRONT);
    painter.fillRect(QRect(corner, MARK), gdi.getColour(Role::unselectedButton));
}

void KeyboardPainter::paintLabels()
{
    painter.setFont(gdi.getFont(GdiManager::FontRole::font3));
    for (int note = 0; note < KeyOutlines::NOTES; note += OCTAVE) {
        const std::string name = Backend::MidiEngine::getNoteName(note, Backend::MidiEngine::Octave::with);
        painter.setPen(gdi.getColour(note == MIDDLE_C ? Role::text : Role::label));
        painter.drawText(QRect(KeyOutlines::leftEdge(note), KeyOutlines::WHITE_HEIGHT, LABEL_WIDTH, LABEL_HEIGHT),
                         Qt::AlignLeft | Qt::AlignVCenter, QString::fromStdString(name));
    }
}
}  // namespace Gui::Output
