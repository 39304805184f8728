#pragma once

#include <gtest/gtest.h>

#include <QDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QSettings>
#include <QTest>

#include "api/Bank.h"
#include "tests/gui/OpenWindow.h"
#include "tests/sections/KeyStage.h"

/// An open window, and hands for its dialogs.
struct DialogHands : OpenWindow, testing::Test {
    DialogHands() { QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, (folder / "qt").c_str()); }

    /// The dialog of that title that is open; null if there is none.
    QDialog* find(const QString& title)
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        for (auto* dialog : surroundings.findChildren<QDialog*>())
            if (dialog->isVisible() && dialog->windowTitle() == title) return dialog;
        return nullptr;
    }
    QDialog& dialog(const QString& title)
    {
        if (auto* found = find(title)) return *found;
        throw std::runtime_error("no dialog " + title.toStdString());
    }
    /// The titles of all that are open, sorted.
    std::string dialogs()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QStringList titles;
        for (auto* each : surroundings.findChildren<QDialog*>())
            if (each->isVisible()) titles.append(each->windowTitle());
        titles.sort();
        return titles.join(", ").toStdString();
    }

    /// Of a dialog's parts the one of that text.
    template <class Button = QAbstractButton>
    Button& buttonIn(QWidget& around, const QString& text)
    {
        for (auto* each : around.findChildren<Button*>())
            if (each->text().remove('&') == text) return *each;
        throw std::runtime_error("no button " + text.toStdString());
    }
    void pressIn(const QString& title, const QString& text)
    {
        QTest::mouseClick(&buttonIn(dialog(title), text), Qt::LeftButton);
        settle();
    }
    QLineEdit& lineIn(const QString& title) { return *dialog(title).findChild<QLineEdit*>(); }

    /// Types into a dialog's line and presses Enter.
    void enter(const QString& title, const QString& text)
    {
        QLineEdit& line = lineIn(title);
        line.selectAll();
        QTest::keyClick(&line, Qt::Key_Delete);
        QTest::keyClicks(&line, text);
        QTest::keyClick(&line, Qt::Key_Return);
        settle();
    }
    /// Names a file in the dialog of that title.
    void chooseFile(const QString& title, const std::string& path)
    {
        auto* line = dialog(title).findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        line->setText(QString::fromStdString(path));
        QTest::keyClick(line, Qt::Key_Return);
        settle();
    }

    /// What the open box says: "Error: Entry cannot be blank"; empty if there is none.
    std::string said()
    {
        for (auto* box : surroundings.findChildren<QMessageBox*>())
            if (box->isVisible()) return (box->windowTitle() + ": " + box->text()).toStdString();
        return "";
    }
    /// Answers it, and says what it said.
    std::string answer(QMessageBox::StandardButton answer = QMessageBox::Ok)
    {
        std::string text = said();
        for (auto* box : surroundings.findChildren<QMessageBox*>())
            if (box->isVisible()) {
                QTest::mouseClick(box->button(answer), Qt::LeftButton);
                break;
            }
        settle();
        return text;
    }
    /// Whether what is typed plays once the dialogs are gone.
    bool isPlayingAgain()
    {
        surroundings.activateWindow();  // which the offscreen platform leaves to us
        return dialogs().empty() && QTest::qWaitForWindowActive(&surroundings) && isPlaying();
    }
    void openFileMenu(const QString& item)
    {
        click("More about files");
        choose(item);
    }

    /// One key that plays a note takes the place of all.
    void loadKey(const std::string& id, const std::string& note)
    {
        const std::string section = "<ComputerInput>" + noteKey(id, note) + "</ComputerInput>";
        orv->getComputerInputManager().loadSection(XmlDocument(section, XmlDocument::Source::text).getRoot());
        settle();
    }
    /// "W", wherever the keys go; what is played then.
    std::string key(QEvent::Type type)
    {
        QWidget* focus = QApplication::focusWidget();
        QKeyEvent event(type, Qt::Key_W, {}, 25, 0, 0, QStringLiteral("w"));
        QApplication::sendEvent(focus == nullptr ? QApplication::activeWindow() : focus, &event);
        settle();
        return played();
    }

    /// The names of a bank's programs.
    std::string namesIn(const std::string& bank) { return namesOf((folder / bank).string()); }
    std::string namesOf(const std::string& path)
    {
        std::string names;
        for (const auto& name : Backend::Bank::fromFile(path).programNames) names += (names.empty() ? "" : ", ") + name;
        return names;
    }

    using Answer = QMessageBox::StandardButton;
};
