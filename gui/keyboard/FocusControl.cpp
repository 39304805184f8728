#include "gui/keyboard/FocusControl.h"

#include <QKeyEvent>

#include "gui/keyboard/KeyInput.h"

namespace Gui
{
namespace
{
constexpr int SIDE = 10;

bool goesToControls(const QKeyEvent& event)
{
    return event.modifiers().testFlag(Qt::ControlModifier) &&
           (event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab);
}
}  // namespace

FocusControl::FocusControl(KeyInput& keyInput, QWidget* parent) : QWidget(parent), input(keyInput)
{
    setGeometry(0, 0, SIDE, SIDE);
    setFocusPolicy(Qt::ClickFocus);  // Tab moves among the controls and skips this one
    setAttribute(Qt::WA_InputMethodEnabled, false);
    setAccessibleName(tr("Playing keyboard"));
    setAccessibleDescription(tr("Control and Tab moves to the controls, Escape moves back."));
    lower();
}

bool FocusControl::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        event->accept();  // no shortcut of a host takes the key
        return true;
    }
    if (event->type() == QEvent::KeyPress) {
        const auto& key = static_cast<const QKeyEvent&>(*event);
        if (goesToControls(key)) return QWidget::focusNextPrevChild(!key.modifiers().testFlag(Qt::ShiftModifier));
    }
    return QWidget::event(event);
}

void FocusControl::keyPressEvent(QKeyEvent* event) { input.press(*event); }
}  // namespace Gui
