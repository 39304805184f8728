#include "gui/screens/layers/RangeSelect.h"

#include <QApplication>
#include <QKeyEvent>
#include <algorithm>
#include <utility>

namespace Gui::Layers
{
void RangeSelect::begin(Output::MusicKeyboardCtl& clickedKeyboard, Chosen chosen)
{
    end();
    keyboard = &clickedKeyboard;
    active = true;
    hasLow = hasHigh = false;
    firstPlayed = -1;
    choose = std::move(chosen);
    player = keyboard->setListener(this);
    qApp->installEventFilter(this);
}

void RangeSelect::end()
{
    if (!std::exchange(active, false)) return;
    qApp->removeEventFilter(this);
    if (keyboard) keyboard->setListener(player);
    if (onEnd) onEnd();
}

void RangeSelect::keyPressed(int note, int, Qt::MouseButton button)
{
    const bool isLow = button == Qt::LeftButton;
    (isLow ? hasLow : hasHigh) = true;
    choose(isLow ? note : -1, isLow ? -1 : note);
    if (hasLow && hasHigh) end();
}

/// In any order; two notes that are played at once will do.
void RangeSelect::takePlayed(const Notes& notes)
{
    const Notes started = notes & ~std::exchange(down, notes);
    for (int note = 0; active && note < Output::KeyOutlines::NOTES; ++note) {
        if (!started[static_cast<std::size_t>(note)]) continue;
        const int first = std::exchange(firstPlayed, note);
        if (first < 0) continue;
        choose(std::min(first, note), std::max(first, note));
        end();
    }
}

bool RangeSelect::eventFilter(QObject* object, QEvent* event)
{
    const bool isEscape = event->type() == QEvent::KeyPress && object->isWidgetType() &&
                          static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
    if (isEscape) end();
    return isEscape;
}
}  // namespace Gui::Layers
