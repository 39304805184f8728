#pragma once

#include "gui/framework/EditPoster.h"
#include "tests/gui/WindowStage.h"

/// A window with a screen on which functions or translations are bound.
struct BindingStage : WindowStage {
    void operate(const QString& name)
    {
        Hands::click(control(name));
        settle();
    }
    void key(QWidget& target, auto... pressed)
    {
        QTest::keyClick(&target, pressed...);
        settle();
    }
    /// In the picker, by its name there.
    void choose(const QString& binding, const char* picker = "Functions")
    {
        auto& list = control<QListWidget>(picker);
        for (int row = 0; row < list.count(); ++row)
            if (list.item(row)->text().trimmed() == binding) list.setCurrentRow(row);
        settle();
    }
    /// A value, or steps down a list.
    void type(const QString& field, const QString& text)
    {
        auto& line = control<QLineEdit>(field);
        line.setFocus();
        replaceText(line, text);
        key(line, Qt::Key_Return);
    }
    void step(const QString& field, int steps)
    {
        for (int i = 0; i < std::abs(steps); ++i) key(control(field), steps > 0 ? Qt::Key_Down : Qt::Key_Up);
    }
    void pick(const QString& list, const QString& text)
    {
        auto& line = control<QLineEdit>(list);
        constexpr int MOST = 20;
        for (int i = 0; i < MOST; ++i) QTest::keyClick(&line, Qt::Key_Up);
        for (int i = 0; i < MOST && line.text() != text; ++i) QTest::keyClick(&line, Qt::Key_Down);
        settle();
    }
    std::string rows(const char* name)
    {
        settle();
        std::string all;
        auto& list = control<QListWidget>(name);
        for (int row = 0; row < list.count(); ++row) all += list.item(row)->text().toStdString() + "\n";
        return all;
    }
    void undo()
    {
        gui->getEdits().undo();
        settle();
    }
};
