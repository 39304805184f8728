#include "gui/screens/layers/RangeSelect.h"

#include <QApplication>
#include <QKeyEvent>
#include <utility>

namespace Gui::Layers
{
void RangeSelect::begin(Output::MusicKeyboardCtl& clickedKeyboard, Chosen chosen)
{
    end();
    keyboard = &clickedKeyboard;
    active = true;
    hasLow = hasHigh = false;
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

bool RangeSelect::eventFilter(QObject* object, QEvent* event)
{
    const bool isEscape = event->type() == QEvent::KeyPress && object->isWidgetType() &&
                          static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
    if (isEscape) end();
    return isEscape;
}
}  // namespace Gui::Layers
