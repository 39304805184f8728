#pragma once

#include "api/GuiContext.h"
#include "gui/framework/GdiManager.h"
#include "gui/framework/Properties.h"
#include "gui/framework/Skinner.h"
#include "tests/gui/Hands.h"

/// A skinned window that is shown, and what its controls need.
struct GuiStage : Gui::GuiContext, Hands {
    using Role = Gui::GdiManager::Role;

    /// Takes the keys that nothing inside it wants, as one that plays them.
    struct Window : QWidget {
        void keyPressEvent(QKeyEvent* event) override
        {
            event->setAccepted(plays);
            if (plays) played.push_back(event->key());
        }
        std::vector<int> played;
        bool plays = true;
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

    /// What a screen reader says of it.
    static void expectAccessible(QWidget& control, QAccessible::Role role, const std::string& value = "")
    {
        control.setAccessibleName("Its name");
        const auto* reported = QAccessible::queryAccessibleInterface(&control);
        ASSERT_NE(reported, nullptr);
        EXPECT_EQ(reported->role(), role);
        EXPECT_EQ(reported->text(QAccessible::Name), "Its name");
        EXPECT_EQ(reported->text(QAccessible::Value).toStdString(), value);
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
    bool shows(QWidget& widget, Role role) const { return shows(picture(widget), colour(role)); }

    /// Whether a picture of 200 % shows more than one of 100 % blown up would.
    static bool isSharp(const QImage& image)
    {
        for (int y = 0; y + 1 < image.height(); y += 2)
            for (int x = 0; x + 1 < image.width(); x += 2)
                if (image.pixel(x, y) != image.pixel(x + 1, y) || image.pixel(x, y) != image.pixel(x, y + 1))
                    return true;
        return false;
    }

    QColor colour(Role role) const { return gdi.getColour(role); }

    Gui::GdiManager gdi;
    Gui::Skinner skinner{gdi};
    Window window;
    int sensitivity = 1;
};
