#pragma once

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileDialog>
#include <QMessageBox>
#include <QMimeData>
#include <QSettings>

#include "api/Bank.h"
#include "gui/framework/ErrorLine.h"
#include "tests/gui/WindowStage.h"
#include "tests/stage/FullDisk.h"

/// An open window, and hands for its dialogs, which go by their titles.
struct DialogHands : OpenWindow, testing::Test {
    using Answer = QMessageBox::StandardButton;

    DialogHands()
    {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope,
                           QString::fromStdString((folder / "qt").string()));
    }

    QList<QDialog*> openDialogs() const
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        auto all = surroundings.findChildren<QDialog*>();
        all.removeIf([](const QDialog* each) { return !each->isVisible(); });
        return all;
    }
    /// Every control in it has a name.
    QDialog& dialog(const QString& title) const
    {
        for (auto* each : openDialogs()) {
            if (each->windowTitle() != title) continue;
            expectNames(*QAccessible::queryAccessibleInterface(each), title.toStdString());
            return *each;
        }
        throw std::runtime_error("no dialog " + title.toStdString());
    }
    /// The titles of all that are open, sorted.
    std::string dialogs() const
    {
        QStringList titles;
        for (const auto* each : openDialogs()) titles.append(each->windowTitle());
        titles.sort();
        return titles.join(", ").toStdString();
    }

    /// The button of that text.
    template <class Button = QAbstractButton>
    static Button& buttonIn(QWidget& around, const QString& text)
    {
        for (auto* each : around.findChildren<Button*>())
            if (each->text().remove('&') == text) return *each;
        throw std::runtime_error("no button " + text.toStdString());
    }
    QLineEdit& lineIn(const QString& title) const { return *dialog(title).findChild<QLineEdit*>(); }
    QListWidget& listIn(const QString& title) const { return *dialog(title).findChild<QListWidget*>(); }

    // These answer the message box that follows, if it has that button, and return what it said: "Confirm Overwrite:
    // Preset already exists. Overwrite?". Without a box they return the line in which a dialog says what is wrong.
    std::string pressIn(const QString& title, const QString& text, Answer reply = Answer::Ok)
    {
        Hands::click(buttonIn(dialog(title), text));
        return answer(reply);
    }
    /// Types into a dialog's line and presses Enter.
    std::string enter(const QString& title, const QString& text, Answer reply = Answer::Ok)
    {
        replaceText(lineIn(title), text);
        return confirm(lineIn(title), reply);
    }
    std::string confirm(QLineEdit& line, Answer reply = Answer::Ok)
    {
        QTest::keyClick(&line, Qt::Key_Return);
        return answer(reply);
    }
    std::string chooseFile(const QString& title, const std::string& path, Answer reply = Answer::Ok)
    {
        auto& line = *dialog(title).findChild<QLineEdit*>("fileNameEdit");
        line.setText(QString::fromStdString(path));
        return confirm(line, reply);
    }
    std::string answer(Answer reply = Answer::Ok)
    {
        settle();
        for (auto* box : surroundings.findChildren<QMessageBox*>()) {
            if (!box->isVisible()) continue;
            dialog(box->windowTitle());
            std::string text = (box->windowTitle() + ": " + box->text()).toStdString();
            if (auto* button = box->button(reply)) Hands::click(*button);
            settle();
            return text;
        }
        for (const auto* each : openDialogs())
            for (const auto* label : each->findChildren<QLabel*>())
                if (dynamic_cast<const Gui::ErrorLine*>(label) != nullptr && label->isVisible())
                    return label->text().toStdString();
        return "";
    }
    void leave(const QString& title)
    {
        QTest::keyClick(&dialog(title), Qt::Key_Escape);
        settle();
    }
    /// No file of this process grows beyond a few bytes meanwhile, whichever thread writes it.
    static std::string onFullDisk(const std::function<std::string()>& action)
    {
        const FullDisk full;
        return action();
    }

    void drop(QWidget& target, const QPoint& place, const QMimeData& data, Qt::KeyboardModifiers held = {})
    {
        QDragEnterEvent enter(place, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, held);
        QApplication::sendEvent(&target, &enter);
        QDropEvent event(place, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, held);
        QApplication::sendEvent(&target, &event);
        settle();
    }
    /// Whether what is typed plays once the dialogs are gone.
    bool isPlayingAgain()
    {
        surroundings.activateWindow();  // which the offscreen platform leaves to us
        return dialogs().empty() && QTest::qWaitForWindowActive(&surroundings) && isPlaying();
    }
    void openFileMenu(const QString& item)
    {
        click("Files");
        choose(item);
    }

    /// "W", wherever the keys go; what is played then.
    std::string key(QEvent::Type type)
    {
        send(type, 'W', Qt::Key_W);
        return played();
    }

    /// The names of the programs of a bank in the folder.
    std::string namesIn(const std::string& bank) const
    {
        std::string names;
        for (const auto& name : Backend::Bank::fromFile(path(bank)).programNames)
            names += (names.empty() ? "" : ", ") + name;
        return names;
    }

private:
    static void expectNames(QAccessibleInterface& part, const std::string& path)
    {
        using Role = QAccessible::Role;
        // What names another control or shows a part of one.
        constexpr Role NAMELESS[] = {Role::StaticText, Role::ScrollBar,   Role::Splitter, Role::Grip,
                                     Role::Cell,       Role::ListItem,    Role::TreeItem, Role::Client,
                                     Role::Pane,       Role::LayeredPane, Role::Border,   Role::Grouping,
                                     Role::PopupMenu,  Role::Separator};
        if (part.state().invisible) return;
        const std::string here =
            path + "/" + (part.object() != nullptr ? part.object()->metaObject()->className() : "part");
        EXPECT_TRUE(std::ranges::count(NAMELESS, part.role()) > 0 || !part.text(QAccessible::Name).trimmed().isEmpty())
            << here << " has no name";
        if (part.role() == Role::Table || part.role() == Role::Tree || part.role() == Role::List) return;  // of items
        for (int child = 0; child < part.childCount(); ++child)
            if (auto* inner = part.child(child)) expectNames(*inner, here);
    }
};
