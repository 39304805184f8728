#pragma once

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QWheelEvent>
#include <stdexcept>

/// What a user does with controls and menus.
struct Hands {
    static void click(QWidget& control) { QTest::mouseClick(&control, Qt::LeftButton); }
    static void mouseMove(QWidget& control, QPoint place, Qt::MouseButton held = Qt::LeftButton)
    {
        QMouseEvent event(QEvent::MouseMove, place, control.mapToGlobal(place), Qt::NoButton, held, Qt::NoModifier);
        QApplication::sendEvent(&control, &event);
    }
    static void wheel(QWidget& control, int notches, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        const QPoint middle = control.rect().center();
        QWheelEvent event(middle, control.mapToGlobal(middle), {}, {0, 120 * notches}, Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&control, &event);
    }
    static void replaceText(QLineEdit& line, const QString& text)
    {
        line.selectAll();
        QTest::keyClick(&line, Qt::Key_Delete);
        QTest::keyClicks(&line, text);
    }

    static QMenu* openMenu() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }

    /// Its entries, with "*" before the current one and "-" before those that cannot be chosen.
    static std::string menu()
    {
        if (openMenu() == nullptr) return "no menu";
        std::string all;
        for (const QAction* action : openMenu()->actions())
            all += (all.empty() ? "" : ", ") + std::string(action->isChecked() ? "*" : "") +
                   (action->isEnabled() ? "" : "-") + action->text().toStdString();
        return all;
    }
    static void choose(const QString& text)
    {
        if (openMenu() != nullptr)
            for (QAction* action : openMenu()->actions())
                if (action->text() == text) {
                    openMenu()->setActiveAction(action);
                    return QTest::keyClick(openMenu(), Qt::Key_Return);
                }
        throw std::runtime_error("no entry " + text.toStdString() + " in " + menu());
    }
};
