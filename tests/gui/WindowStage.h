#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QTest>
#include <QVBoxLayout>
#include <memory>

#include "backend/core/OrvFactory.h"
#include "gui/OrvGuiFactory.h"
#include "gui/OrvGuiIF.h"
#include "gui/ParentWindow.h"
#include "tests/computer/KeyStage.h"

/// Before the first backend is made.
inline const bool backendsHaveWindows = [] {
    Backend::OrvFactory::setGuiFactory(&Gui::OrvGuiFactory::createOrvGui);
    return true;
}();

/// A backend with its window on a desktop of its own, and hands on the computer's keyboard.
class WindowStage : public KeyStage
{
public:
    WindowStage() : gui(commands().sendCreateOrvGui(false))
    {
        desktop.resize(1000, 700);
        desktop.show();
        gui->initialize();
        gui->create(parent);
        comeBack();
        settle();
    }
    ~WindowStage() { gui.reset(); }

    /// The desktop's focus is ours, and we play.
    void comeBack()
    {
        desktop.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&desktop));
        gui->setFocus();
    }

    /// What was posted, in both directions.
    void settle()
    {
        rest();
        QTest::qWait(20);
        rest();
    }

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

    /// Where a key goes; the desktop itself if there is no focus.
    QWidget& focus() { return QApplication::focusWidget() == nullptr ? desktop : *QApplication::focusWidget(); }
    template <class Control>
    Control& find(const char* name)
    {
        for (auto* control : desktop.findChildren<Control*>())
            if (control->accessibleName() == QLatin1String(name)) return *control;
        throw std::runtime_error(std::string("there is no ") + name);
    }

    QWidget desktop;
    std::unique_ptr<Gui::OrvGuiIF> gui;

private:
    struct Parent final : Gui::ParentWindow {
        explicit Parent(QWidget& around) : desktop(around) {}
        QWidget* getWidget() override { return &desktop; }
        void windowResized(int, int) override {}
        void moveWindow(const RelativeFixedValue&, const RelativeFixedValue&) override {}

        QWidget& desktop;
    };

    void send(QEvent::Type type, quint32 place, int key, Qt::KeyboardModifiers held)
    {
        QKeyEvent event(type, key, held, place, 0, 0);
        QApplication::sendEvent(&focus(), &event);
    }

    Parent parent{desktop};
};
