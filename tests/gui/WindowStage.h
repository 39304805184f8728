#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <string>

#include "tests/sections/KeyStage.h"
#include "tests/gui/Windowed.h"

/// A window that is open, and hands on the computer's keyboard.
class WindowStage : public Windowed<KeyStage>
{
public:
    WindowStage() { open(); }

    // By the place on the board: 24 is "Q", 50 and 62 Shift, 37 and 105 Control.
    void keyDown(quint32 place, int key = 0, Qt::KeyboardModifiers held = {})
    {
        send(QEvent::KeyPress, place, key, held);
    }
    void keyUp(quint32 place, int key = 0, Qt::KeyboardModifiers held = {})
    {
        send(QEvent::KeyRelease, place, key, held);
    }

    std::string playedNow()
    {
        rest();
        return played();
    }

    /// Where a key goes; the surroundings themselves if there is no focus.
    QWidget& focus() { return QApplication::focusWidget() == nullptr ? surroundings : *QApplication::focusWidget(); }

private:
    void send(QEvent::Type type, quint32 place, int key, Qt::KeyboardModifiers held)
    {
        QKeyEvent event(type, key, held, place, 0, 0);
        QApplication::sendEvent(&focus(), &event);
    }
};
