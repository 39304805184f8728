#include "gui/keyboard/WindowKeyboard.h"

#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTimer>
#include <algorithm>
#include <chrono>

#include "gui/framework/TextFocus.h"
#include "gui/framework/WidgetTree.h"
#include "gui/keyboard/FocusControl.h"

namespace Gui
{
namespace
{
/// The longest time that a desktop takes to give the focus back to the window after a dialog.
constexpr auto FOCUS_RETURN_TIME = std::chrono::seconds(1);

/// Whether it is a dialog in which nothing can be typed.
bool isPlayedIn(const QWidget* dialog)
{
    if (qobject_cast<const QDialog*>(dialog) == nullptr || dialog->property(TAKES_TYPING).toBool()) return false;
    const auto lines = dialog->findChildren<QLineEdit*>();
    return std::ranges::none_of(lines, [](const QLineEdit* line) { return !line->isReadOnly(); });
}

/// The keys that move about in a dialog and answer it.
bool belongsToDialog(const QKeyEvent& key)
{
    constexpr int KEYS[] = {Qt::Key_Tab,   Qt::Key_Backtab, Qt::Key_Return, Qt::Key_Enter,   Qt::Key_Escape,
                            Qt::Key_Space, Qt::Key_Left,    Qt::Key_Right,  Qt::Key_Up,      Qt::Key_Down,
                            Qt::Key_Home,  Qt::Key_End,     Qt::Key_PageUp, Qt::Key_PageDown};
    return std::ranges::find(KEYS, key.key()) != std::end(KEYS);
}

/// A control that takes the focus at a click would release the keys that are held.
void refuseClickFocus(QWidget& control)
{
    if ((control.focusPolicy() & Qt::ClickFocus) != 0 && !takesText(&control) &&
        dynamic_cast<FocusControl*>(&control) == nullptr)
        control.setFocusPolicy(Qt::TabFocus);
}
}  // namespace

WindowKeyboard::WindowKeyboard(QWidget& playedWindow, KeyPresses::Listener& listener)
    : window(playedWindow),
      keyPresses(listener),
      keyInput(keyPresses),
      focusControl(new FocusControl(keyInput, &playedWindow))
{
    qApp->installEventFilter(this);
    connect(qApp, &QApplication::focusChanged, this, &WindowKeyboard::focusMoved);
}

WindowKeyboard::~WindowKeyboard() { qApp->removeEventFilter(this); }

void WindowKeyboard::takeFocus()
{
    if (!takesText(QApplication::focusWidget())) focusControl->setFocus();
}

void WindowKeyboard::takeFocusFrom(const QWidget& part)
{
    const QWidget* focused = window.window()->focusWidget();
    if (focused != nullptr && isWithin(*focused, part)) focusControl->setFocus();
}

void WindowKeyboard::keyPressed(const QKeyEvent& event)
{
    if (event.key() == Qt::Key_Escape)
        focusControl->setFocus();
    else if (!takesText(QApplication::focusWidget()) && !(onWindowKey && onWindowKey(event)))
        keyInput.press(event);
}

void WindowKeyboard::keyReleased(const QKeyEvent& event) { keyInput.release(event); }

void WindowKeyboard::releaseTyped() { keyInput.focusLost(); }

void WindowKeyboard::releaseAll()
{
    for (const auto source : {KeyPresses::Source::window, KeyPresses::Source::hook, KeyPresses::Source::picture})
        keyPresses.releaseAll(source);
}

bool WindowKeyboard::eventFilter(QObject* object, QEvent* event)
{
    auto* widget = qobject_cast<QWidget*>(object);
    if (widget == nullptr) return false;
    if (isToBeLearned(*widget, *event)) {
        event->accept();
        if (event->type() == QEvent::KeyPress) keyInput.press(*static_cast<QKeyEvent*>(event));
        return true;
    }
    if (widget == focusControl && event->type() == QEvent::KeyPress && onWindowKey)
        return onWindowKey(*static_cast<QKeyEvent*>(event));
    if (widget->window() != window.window()) return isWithin(*widget, window) && handleInDialog(*widget, *event);
    handleInWindow(*widget, *event);
    return false;
}

bool WindowKeyboard::isToBeLearned(const QWidget& widget, const QEvent& event) const
{
    const bool isKey = event.type() == QEvent::KeyPress || event.type() == QEvent::ShortcutOverride;
    return playsEveryKey && isKey && (widget.window() == window.window() || isWithin(widget, window));
}

/// A click beside a text ends its editing; the keys that play follow the focus.
void WindowKeyboard::handleInWindow(QWidget& widget, const QEvent& event)
{
    switch (event.type()) {
        case QEvent::MouseButtonPress:
            if (!takesText(&widget)) focusControl->setFocus();
            break;
        case QEvent::Show:
            if (window.isAncestorOf(&widget)) refuseClickFocus(widget);
            break;
        case QEvent::FocusIn:
            if (window.isAncestorOf(&widget) && !takesText(&widget)) keyInput.focusGained();
            break;
        case QEvent::FocusOut:  // a menu opens; `focusMoved` is called for everything else
            if (static_cast<const QFocusEvent&>(event).reason() == Qt::PopupFocusReason) keyInput.focusLost();
            break;
        case QEvent::WindowDeactivate:
            if (!isPlayedIn(QApplication::activeModalWidget())) keyInput.focusLost();
            break;
        default:
            break;
    }
}

KeyTarget WindowKeyboard::findTarget(const QWidget* focus) const
{
    if (focus == nullptr || !isWithin(*focus, window)) return KeyTarget::elsewhere;
    const bool plays = window.isAncestorOf(focus) ? !takesText(focus) : isPlayedIn(focus->window());
    return plays ? KeyTarget::music : KeyTarget::text;
}

/// From one control to another, keys stay down; their releases reach the window from either.
void WindowKeyboard::focusMoved(const QWidget* from, const QWidget* to)
{
    if (onTarget) onTarget(findTarget(to));
    if (from == nullptr || !window.isAncestorOf(from)) return;
    const bool stays = to != nullptr && window.isAncestorOf(to) && !takesText(to);
    if (!stays && !isPlayedIn(QApplication::activeModalWidget())) keyInput.focusLost();
}

/// True for a key that is played here.
bool WindowKeyboard::handleInDialog(QWidget& widget, QEvent& event)
{
    switch (event.type()) {
        case QEvent::Hide:
            if (widget.isWindow()) returnFocus();
            return false;
        case QEvent::WindowDeactivate:
            widget.window()->isHidden() ? dialogClosed() : keyInput.focusLost();
            return false;
        case QEvent::KeyPress: {
            const auto& key = static_cast<const QKeyEvent&>(event);
            if (!isPlayedIn(widget.window()) || belongsToDialog(key)) return false;
            keyInput.press(key);
            return true;
        }
        case QEvent::KeyRelease:
            keyInput.release(static_cast<const QKeyEvent&>(event));
            return false;
        default:
            return false;
    }
}

/// Once the choice of the menu, or the answer of the dialog, has had its effect; a text that is edited keeps the focus.
void WindowKeyboard::returnFocus()
{
    QTimer::singleShot(0, this, [this] {
        if (!takesText(window.window()->focusWidget())) focusControl->setFocus();
    });
}

/// The window, or a dialog below, gets the focus a moment later, unless another program has taken it.
void WindowKeyboard::dialogClosed()
{
    QTimer::singleShot(FOCUS_RETURN_TIME, this, [this] {
        if (!window.isActiveWindow() && !isPlayedIn(QApplication::activeModalWidget())) keyInput.focusLost();
    });
}
}  // namespace Gui
