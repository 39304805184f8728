#pragma once

#include <QApplication>
#include <QImage>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QTest>
#include <QWheelEvent>
#include <QWidget>
#include <string>
#include <vector>

#include "gui/framework/GdiManager.h"
#include "api/GuiContext.h"
#include "gui/framework/Skinner.h"

/// A skinned window that is shown, what its controls need, and hands for them.
class GuiStage : public Gui::GuiContext
{
public:
    /// Takes the keys that nothing inside it wants, as one that plays them.
    class Window : public QWidget
    {
    public:
        std::vector<int> played;
        bool plays = true;

    protected:
        void keyPressEvent(QKeyEvent* event) override
        {
            event->setAccepted(plays);
            if (plays) played.push_back(event->key());
        }
    };

    GuiStage()
    {
        skinner.skinWindow(window);
        window.resize(400, 300);
        window.show();
        window.activateWindow();
    }

    Gui::GdiManager& getGdiManager() override { return gdi; }
    int getMouseSensitivity() const override { return sensitivity; }

    /// The control, shown and skinned.
    template <class Control>
    Control& show(Control& control)
    {
        control.show();
        settle();
        return control;
    }

    /// What was posted and deferred, and what a timer of up to this many milliseconds would do.
    static void settle(int milliseconds = 0)
    {
        QTest::qWait(milliseconds);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    static void wheel(QWidget& control, int notches, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        const QPoint middle = control.rect().center();
        QWheelEvent event(middle, control.mapToGlobal(middle), {}, {0, 120 * notches}, Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&control, &event);
    }

    static void mouse(QWidget& control, QEvent::Type type, Qt::MouseButton button, QPoint place)
    {
        const bool moves = type == QEvent::MouseMove;
        QMouseEvent event(type, place, control.mapToGlobal(place), moves ? Qt::NoButton : button,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : button, Qt::NoModifier);
        QApplication::sendEvent(&control, &event);
    }

    static void press(QWidget& control, QPoint place, Qt::MouseButton button = Qt::LeftButton)
    {
        mouse(control, QEvent::MouseButtonPress, button, place);
    }
    static void move(QWidget& control, QPoint place, Qt::MouseButton button = Qt::LeftButton)
    {
        mouse(control, QEvent::MouseMove, button, place);
    }
    static void release(QWidget& control, QPoint place, Qt::MouseButton button = Qt::LeftButton)
    {
        mouse(control, QEvent::MouseButtonRelease, button, place);
    }

    /// The open menu, or none.
    static QMenu* openMenu() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }

    static void choose(const QString& text)
    {
        for (QAction* action : openMenu()->actions())
            if (action->text() == text) {
                openMenu()->setActiveAction(action);
                return QTest::keyClick(openMenu(), Qt::Key_Return);
            }
    }

    /// As it is on the screen, in device pixels.
    static QImage picture(QWidget& widget) { return widget.grab().toImage().convertToFormat(QImage::Format_RGB32); }

    static QColor cornerColour(QWidget& control) { return picture(control).pixelColor(0, 0); }

    static bool shows(const QImage& picture, const QColor& colour)
    {
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                if (picture.pixelColor(x, y) == colour) return true;
        return false;
    }

    /// Whether a picture of 200 % shows more than one of 100 % blown up would.
    static bool isSharp(const QImage& image)
    {
        for (int y = 0; y + 1 < image.height(); y += 2)
            for (int x = 0; x + 1 < image.width(); x += 2)
                if (image.pixel(x, y) != image.pixel(x + 1, y) || image.pixel(x, y) != image.pixel(x, y + 1))
                    return true;
        return false;
    }

    QColor colour(Gui::GdiManager::Role role) const { return gdi.getColour(role); }

    Gui::GdiManager gdi;
    Gui::Skinner skinner{gdi};
    Window window;
    int sensitivity = 1;
};
