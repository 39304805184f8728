#pragma once

#include "gui/framework/DragSlider.h"
#include "gui/framework/EditPoster.h"
#include "tests/gui/WindowStage.h"

/// A window in which a screen is played and edited, whose output is read.
struct ScreenStage : WindowStage {
    /// The bytes that the output got since the last call.
    std::string sent()
    {
        settle();
        playSlices();
        std::string all;
        for (const auto& event : std::exchange(player.events, {})) {
            char text[16];
            std::snprintf(text, sizeof text, "%02x %02x %02x, ", event.getStatusWithChannel(), event.getD1(),
                          event.getD2());
            all += text;
        }
        return all;
    }
    void drag(const QString& name, int up)
    {
        auto& slider = control<Gui::DragSlider>(name);
        const QPoint start = slider.rect().center();
        QTest::mousePress(&slider, Qt::LeftButton, {}, start);
        for (int step = 1; step <= std::abs(up); ++step) mouseMove(slider, start - QPoint(0, up > 0 ? step : -step));
        QTest::mouseRelease(&slider, Qt::LeftButton, {}, start - QPoint(0, up));
        settle();
    }
    void key(auto... pressed)
    {
        QTest::keyClick(&focus(), pressed...);
        settle();
    }
    void type(const QString& field, const QString& text)
    {
        auto& line = control<QLineEdit>(field);
        line.setFocus();
        replaceText(line, text);
        QTest::keyClick(&line, Qt::Key_Return);
        settle();
    }
    void pick(const QString& list, const QString& text)
    {
        auto& line = control<QLineEdit>(list);
        for (int i = 0; i < 130; ++i) QTest::keyClick(&line, Qt::Key_Up);
        for (int i = 0; i < 130 && line.text() != text; ++i) QTest::keyClick(&line, Qt::Key_Down);
        settle();
    }
    std::string undo()
    {
        gui->getEdits().undo();
        settle();
        return status();
    }
    std::string status()
    {
        return QAccessible::queryAccessibleInterface(&control("Status"))->text(QAccessible::Value).toStdString();
    }
};
