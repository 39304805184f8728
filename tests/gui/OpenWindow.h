#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QTest>
#include <QWheelEvent>
#include <string>

#include "tests/gui/Windowed.h"

/// The stage with its window open, a bank of the programs "P0" to "P2", and hands for the controls, which go by their
/// accessible names.
class OpenWindow : public Windowed<>
{
public:
    OpenWindow()
    {
        open();
        control("Playing keyboard").parentWidget()->installEventFilter(&keys);
        std::string bank = "<Bank>\n";
        for (const char* name : {"P0", "P1", "P2"})
            bank += std::string("<Program name=\"") + name + "\">\n\t<Layers>\n\t\t<Layer/>\n\t</Layers>\n</Program>\n";
        folder.write("Three.bnk", bank + "</Bank>\n");
        commands().postLoadBank((folder / "Three.bnk").string());
        settle();
    }

    QAbstractButton& button(const QString& name) { return control<QAbstractButton>(name); }
    QLineEdit& edit(const QString& name) { return control<QLineEdit>(name); }
    std::string textOf(const QString& name) { return edit(name).text().toStdString(); }

    void click(const QString& name)
    {
        QTest::mouseClick(&button(name), Qt::LeftButton);
        settle();
    }
    /// Replaces the text, as it is typed after a click into it.
    void type(const QString& name, const QString& text)
    {
        QTest::mouseClick(&edit(name), Qt::LeftButton, {}, {3, 10});
        edit(name).selectAll();
        QTest::keyClick(&edit(name), Qt::Key_Delete);
        QTest::keyClicks(&edit(name), text);
    }
    /// What stands there afterwards, of these two.
    std::string key(const QString& name, Qt::Key pressed, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(&edit(name), pressed, modifiers);
        settle();
        return textOf(name);
    }
    std::string wheel(const QString& name, int notches, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QWidget& turned = control(name);
        const QPoint middle = turned.rect().center();
        QWheelEvent event(middle, turned.mapToGlobal(middle), {}, {0, 120 * notches}, Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&turned, &event);
        settle();
        return textOf(name);
    }

    /// The open menu, with "*" before the current entry and "-" before those that cannot be chosen.
    std::string menu()
    {
        auto* open = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        std::string all;
        if (open != nullptr)
            for (const QAction* action : open->actions())
                all += (all.empty() ? "" : ", ") + std::string(action->isChecked() ? "*" : "") +
                       (action->isEnabled() ? "" : "-") + action->text().toStdString();
        return all;
    }
    void choose(const QString& text)
    {
        auto* open = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(open, nullptr);
        for (QAction* action : open->actions())
            if (action->text() == text) {
                open->setActiveAction(action);
                QTest::keyClick(open, Qt::Key_Return);
                break;
            }
        surroundings.activateWindow();  // which the offscreen platform leaves to us
        settle();
    }

    /// Whether what is typed plays.
    bool isPlaying() { return QApplication::focusWidget() == &control("Playing keyboard"); }

    /// Counts the keys that reach the window and would play.
    class Keys final : public QObject
    {
    public:
        int count = 0;
        bool eventFilter(QObject*, QEvent* event) override
        {
            if (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease) ++count;
            return false;
        }
    };

    TemporaryFolder folder;
    Keys keys;
};
