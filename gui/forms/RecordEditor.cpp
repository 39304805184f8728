#include "gui/forms/RecordEditor.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QWidget>
#include <algorithm>
#include <utility>

#include "backend/model/RecordFields.h"
#include "backend/xml/XmlDocument.h"
#include "backend/xml/XmlWriter.h"
#include "gui/framework/EditPoster.h"
#include "gui/framework/PopupMenu.h"

namespace Gui::Forms
{
using namespace Backend;

namespace
{
using Command = RecordEditor::Command;

struct CommandRow {
    Command command;
    const char* text;
    QKeyCombination key;
    const char* keyName;
};
constexpr CommandRow COMMANDS[] = {{Command::settings, QT_TR_NOOP("Settings"), Qt::Key_Return, QT_TR_NOOP("Enter")},
                                   {Command::copy, QT_TR_NOOP("Copy"), Qt::CTRL | Qt::Key_C, QT_TR_NOOP("Ctrl+C")},
                                   {Command::paste, QT_TR_NOOP("Paste"), Qt::CTRL | Qt::Key_V, QT_TR_NOOP("Ctrl+V")},
                                   {Command::twice, QT_TR_NOOP("Double"), Qt::CTRL | Qt::Key_D, QT_TR_NOOP("Ctrl+D")},
                                   {Command::remove, QT_TR_NOOP("Delete"), Qt::Key_Delete, QT_TR_NOOP("Del")}};

/// The records in a text, each by its fields.
std::vector<Fields> readRecords(const QString& text, const SectionRecords::Kind& kind)
{
    std::vector<Fields> found;
    const std::string utf8 = text.toStdString();
    const XmlElement root = XmlDocument(utf8, XmlDocument::Source::text).getRoot();
    if (root.getTagName() != kind.section) return found;
    forEachElement(root, [&](const XmlElement& child) {
        if (child.getTagName() == kind.element) found.push_back(RecordFields::read(child));
    });
    return found;
}
}  // namespace

std::vector<RecordEdit> SectionRecords::makeAdditions(std::vector<Fields> added, const Selection& selection) const
{
    if (getKind().ids != Selection::Ids::indices) return {};
    const std::vector<RecordId> selected = selection.getSelected();
    RecordId place = selected.empty() ? static_cast<RecordId>(selection.getRecords().size()) : selected.back() + 1;
    std::vector<RecordEdit> edits;
    for (Fields& fields : added)
        edits.push_back({.kind = RecordEdit::Kind::add, .id = place++, .fields = std::move(fields)});
    return edits;
}

std::vector<RecordEdit> SectionRecords::makeRemovals(const std::vector<RecordId>& removed) const
{
    std::vector<RecordEdit> edits;
    for (const RecordId id : removed) edits.push_back({.kind = RecordEdit::Kind::remove, .id = id});
    return edits;
}

RecordEditor::RecordEditor(SectionRecords& shownRecords, EditPoster& poster,
                           std::function<void(const QString&)> sayInStatus, QObject* parent)
    : QObject(parent),
      records(shownRecords),
      edits(poster),
      status(std::move(sayInStatus)),
      selection(shownRecords.getKind().ids)
{
    selection.setRecords(records.getIds());
    selection.onChange = [this] { notify(); };
    edits.observe(*this, [this](const EditDone& done) { follow(done); });
}

void RecordEditor::observe(const QObject& owner, std::function<void()> observer)
{
    observers.push_back({&owner, std::move(observer)});
}

void RecordEditor::notify()
{
    if (isUpdating) return;
    std::erase_if(observers, [](const Observer& observer) { return observer.owner == nullptr; });
    for (std::size_t i = 0; i < observers.size(); ++i) observers[i].call();
}

// --- what the backend reports

void RecordEditor::report(std::function<void()> take)
{
    takes.push_back(std::move(take));
    edits.whenIdle(*this, [this] { update(); });
}

void RecordEditor::follow(const EditDone& done)
{
    if (done.gesture == moving) moving = 0;
    for (const EditDone::Record& record : done.records)
        if (record.section == records.getKind().section) moves.push_back(record);
    edits.whenIdle(*this, [this] { update(); });
}

/// The records that were selected stay so under their new indices; what was added is selected.
void RecordEditor::update()
{
    if (moves.empty() && takes.empty()) return;
    isUpdating = true;
    std::vector<RecordId> added;
    for (const EditDone::Record& record : std::exchange(moves, {})) {
        if (record.kind == RecordEdit::Kind::remove) {
            if (records.getKind().ids == Selection::Ids::indices) selection.removed(record.id);
        } else {
            selection.added(record.id);
            added.push_back(record.id);
        }
    }
    for (const auto& take : std::exchange(takes, {})) take();
    selection.setRecords(records.getIds());
    const auto isSelected = [this](RecordId id) { return selection.isSelected(id); };
    if (!std::ranges::all_of(added, isSelected)) selection.select(added);
    isUpdating = false;
    notify();
}

// --- commands

bool RecordEditor::canExecute(Command command) const
{
    if (command == Command::paste) return !QApplication::clipboard()->text().isEmpty();
    const auto selected = selection.getSelected();
    if (command == Command::twice && !records.getKind().canBeDoubled) return false;
    if (command == Command::twice) return !records.makeAdditions(readSelected(), selection).empty();
    return !selected.empty();
}

void RecordEditor::execute(Command command)
{
    if (command == Command::settings) return setOpen(!isFormOpen && !selection.getSelected().empty());
    if (command == Command::copy) return copy();
    // An earlier edit may still change which records are selected.
    edits.whenIdle(*this, [this, command] {
        update();
        if (command == Command::paste) paste();
        if (command == Command::twice) addTwice();
        if (command == Command::remove) removeSelected();
    });
}

std::optional<Command> RecordEditor::commandOf(const QKeyEvent& event)
{
    const QKeyCombination pressed(event.modifiers() & ~Qt::KeypadModifier,
                                  event.key() == Qt::Key_Enter ? Qt::Key_Return : static_cast<Qt::Key>(event.key()));
    const auto row = std::ranges::find(COMMANDS, pressed, &CommandRow::key);
    return row == std::end(COMMANDS) ? std::nullopt : std::optional(row->command);
}

bool RecordEditor::useKey(const QKeyEvent& event)
{
    if (const auto command = commandOf(event)) {
        execute(*command);
        return true;
    }
    if (event.key() == Qt::Key_Z && event.modifiers() == Qt::ControlModifier)
        edits.undo();
    else if (event.key() == Qt::Key_Z && event.modifiers() == (Qt::ControlModifier | Qt::ShiftModifier))
        edits.redo();
    else
        return selection.useKey(event.key(), event.modifiers());
    return true;
}

void RecordEditor::addTo(PopupMenu& menu)
{
    for (const CommandRow& row : COMMANDS) {
        const QString text = row.command == Command::remove ? records.getKind().removal : tr(row.text);
        QAction& action = menu.addItem({.text = text + '\t' + tr(row.keyName), .enabled = canExecute(row.command)});
        connect(&action, &QAction::triggered, this, [this, command = row.command] { execute(command); });
    }
}

void RecordEditor::showMenu(QWidget& view, const QPoint& globalPosition)
{
    auto* menu = new PopupMenu(&view);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    addTo(*menu);
    menu->show(globalPosition);
}

void RecordEditor::setOpen(bool open)
{
    if (std::exchange(isFormOpen, open) != open) notify();
}

// --- the clipboard

std::vector<Fields> RecordEditor::readSelected() const
{
    std::vector<Fields> all;
    for (const RecordId id : selection.getSelected()) all.push_back(RecordFields::read(records.write(id)));
    return all;
}

/// The section's element with the records, as in a preset of them.
void RecordEditor::copy() const
{
    const auto& kind = records.getKind();
    std::string text = xmlOpenTag(kind.section) + xmlBoolAttribute("merge", true) + xmlCloseOpen() + '\n';
    const auto selected = selection.getSelected();
    for (const RecordId id : selected) text += records.write(id);
    if (!selected.empty())
        QApplication::clipboard()->setText(QString::fromStdString(text + xmlEndTag(kind.section) + '\n'));
}

void RecordEditor::paste()
{
    std::vector<Fields> pasted = readRecords(QApplication::clipboard()->text(), records.getKind());
    if (pasted.empty()) return say(tr("The clipboard has no %1.").arg(records.getKind().many));
    const std::size_t count = pasted.size();
    auto additions = records.makeAdditions(std::move(pasted), selection);
    if (additions.empty()) return say(tr("There is no room for %1.").arg(countOf(count)));
    const QString name = tr("paste %1").arg(countOf(additions.size()));
    post(name, std::move(additions));
}

void RecordEditor::addTwice()
{
    if (!canExecute(Command::twice)) return;
    const auto selected = selection.getSelected();
    auto additions = records.makeAdditions(readSelected(), selection);
    if (!additions.empty()) post(tr("double %1").arg(describe(selected)), std::move(additions));
}

void RecordEditor::removeSelected()
{
    const auto selected = selection.getSelected();
    auto descending = selected;  // where ids are indices, the others keep theirs
    std::ranges::sort(descending, std::greater());
    auto removals = records.makeRemovals(descending);
    if (!removals.empty()) post(records.getKind().removal.toLower() + ' ' + describe(selected), std::move(removals));
}

// --- posting

void RecordEditor::change(const std::vector<RecordId>& ids, const QString& value, std::uint32_t gesture,
                          const std::function<void()>& set)
{
    if (moving != 0) return;
    std::vector<Fields> before;
    for (const RecordId id : ids) before.push_back(RecordFields::read(records.write(id)));
    set();
    Backend::Edit edit{.section = records.getKind().section,
                       .name = (describe(ids) + ' ' + value.toLower()).toStdString(),
                       .gesture = gesture};
    for (std::size_t i = 0; i < ids.size(); ++i) {
        const Fields after = RecordFields::read(records.write(ids[i]));
        Fields changed = RecordFields::differing(before[i], after);
        const bool isGone = after.empty();
        const auto kind = before[i].empty() ? RecordEdit::Kind::add
                          : isGone          ? RecordEdit::Kind::remove
                                            : RecordEdit::Kind::change;
        if (changed.empty()) continue;
        if (isGone) changed.clear();
        edit.records.push_back({.kind = kind, .id = ids[i], .fields = std::move(changed)});
    }
    if (edit.records.empty()) return;
    edits.post(std::move(edit));
    notify();
}

void RecordEditor::post(const QString& name, std::vector<RecordEdit> edited)
{
    moving = edits.beginGesture();
    edits.post({.section = records.getKind().section,
                .name = name.toStdString(),
                .gesture = moving,
                .records = std::move(edited)});
}

QString RecordEditor::describe(const std::vector<RecordId>& ids) const
{
    return ids.size() == 1 ? records.nameOf(ids.front()) : countOf(ids.size());
}

QString RecordEditor::countOf(std::size_t count) const
{
    const auto& kind = records.getKind();
    return count == 1 ? kind.one : QStringLiteral("%1 %2").arg(count).arg(kind.many);
}
}  // namespace Gui::Forms
