#pragma once

#include <QObject>
#include <QPointer>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "gui/forms/SectionRecords.h"
#include "gui/forms/Selection.h"

class QKeyEvent;
class QPoint;
class QWidget;

namespace Gui
{
class EditPoster;
class PopupMenu;
}  // namespace Gui

namespace Gui::Forms
{
/// What the views of a section do with its records: it has their selection, copies, pastes, doubles and deletes what is
/// selected, and posts what is changed. Each of these is one step of undo, whatever the number of records. Views show
/// the records and pass on mouse and keys. The GUI thread.
class RecordEditor final : public QObject
{
public:
    enum class Command {
        settings,  ///< opens them beneath the section, or closes them
        copy,
        paste,
        twice,
        remove
    };

    /// `shownRecords` and `poster` must outlive it. `sayInStatus` shows a line to the user.
    RecordEditor(SectionRecords& shownRecords, EditPoster& poster, std::function<void(const QString&)> sayInStatus,
                 QObject* parent = nullptr);

    SectionRecords& getRecords() { return records; }
    Selection& getSelection() { return selection; }
    EditPoster& getEdits() { return edits; }

    /// Calls `observer` when other records are selected, when records have changed and when the settings open or close,
    /// as long as `owner` exists.
    void observe(const QObject& owner, std::function<void()> observer);

    /// The backend reported the section or a part of it: `take` changes the copies. It is called once all edits were
    /// acknowledged, so that a drag does not show older values.
    void report(std::function<void()> take);

    // Commands on what is selected

    bool canExecute(Command command) const;
    /// Does nothing where `canExecute` is false. A text in the clipboard that has no records of the section is refused
    /// in the status line.
    void execute(Command command);
    /// The command of a key: Enter, Delete, Control and C, V or D.
    static std::optional<Command> commandOf(const QKeyEvent& event);
    /// A key in a view that has the focus: those of the commands and of the selection, and Control+Z. True if it was
    /// one of these.
    bool useKey(const QKeyEvent& event);

    /// Adds the commands with their keys to a menu that a view may continue.
    void addTo(PopupMenu& menu);
    void showMenu(QWidget& view, const QPoint& globalPosition);

    /// Whether the settings beneath the section are open.
    bool isOpen() const { return isFormOpen; }
    void setOpen(bool open);

    /// Calls `set`, which changes the copies of these records, and posts the fields that differ then; records that it
    /// makes are added, those that it takes away removed. `value` names the edit: "layer 2 transpose". Does nothing while records are being added or
    /// removed by a command.
    void change(const std::vector<Backend::RecordId>& ids, const QString& value, std::uint32_t gesture,
                const std::function<void()>& set);
    void say(const QString& text) const { status(text); }

private:
    struct Observer {
        QPointer<const QObject> owner;
        std::function<void()> call;
    };

    QString describe(const std::vector<Backend::RecordId>& ids) const;
    QString countOf(std::size_t count) const;
    std::vector<Backend::Fields> readSelected() const;
    void copy() const;
    void paste();
    void addTwice();
    void removeSelected();
    void post(const QString& name, std::vector<Backend::RecordEdit> edited);
    void follow(const Backend::EditDone& done);
    void update();
    void notify();

    SectionRecords& records;
    EditPoster& edits;
    const std::function<void(const QString&)> status;
    Selection selection;
    std::vector<Observer> observers;
    bool isFormOpen = false;
    bool isUpdating = false;
    std::uint32_t moving = 0;  // the gesture that adds or removes records, until it is acknowledged
    // What the selection and the copies follow when everything is acknowledged
    std::vector<Backend::EditDone::Record> moves;
    std::vector<std::function<void()>> takes;
};
}  // namespace Gui::Forms
