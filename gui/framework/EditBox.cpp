#include "gui/framework/EditBox.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDialog>
#include <QKeyEvent>
#include <QWheelEvent>
#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

#include "backend/values/Note.h"
#include "gui/framework/PopupMenu.h"
#include "gui/framework/Properties.h"

namespace Gui
{
using Backend::MidiEngine::Note;
using Property::isSet;

namespace
{
constexpr int OCTAVE = 12;
constexpr int HIGHEST_DATA = 127;
constexpr int LONGEST_MENU = 500;

int limitOf(const QObject& edit, const char* property, int otherwise)
{
    const QVariant limit = edit.property(property);
    return limit.isValid() ? limit.toInt() : otherwise;
}
}  // namespace

EditBox::EditBox(QWidget* parent) : QLineEdit(parent) { setTextMargins(1, 0, 2, 0); }

EditBox::Range EditBox::getRange() const
{
    Range range{limitOf(*this, Property::MIN, isSet(*this, Property::NUMBERS_ONLY) ? 0 : -HIGHEST_DATA),
                limitOf(*this, Property::MAX, HIGHEST_DATA)};
    if (range.lowest > range.highest) std::swap(range.lowest, range.highest);
    return range;
}

int EditBox::getNumber() const
{
    const QString shown = text().trimmed();
    const bool isNumber = !shown.isEmpty() && (shown[0].isDigit() || shown[0] == '-' || shown[0] == '+');
    if (isSet(*this, Property::SHOW_NOTE_STRING) && !isNumber) {
        constexpr int MIDDLE_C = 60;
        const Note note(shown.toStdString());
        return note.isNote() ? note.getNumber() : MIDDLE_C;
    }
    return shown.toInt();
}

QString EditBox::textOf(int number) const
{
    if (isSet(*this, Property::SHOW_NOTE_STRING)) return QString::fromStdString(Note(number).toXmlString());
    if (number == 0 && isSet(*this, Property::SHOW_ZERO_AS_BLANK)) return {};
    return QString::number(number);
}

void EditBox::setNumber(int number)
{
    const QSignalBlocker quiet(this);
    setText(textOf(number));
}

/// As if it had been typed.
void EditBox::choose(int number)
{
    setText(textOf(number));
    Q_EMIT textEdited(text());
}

void EditBox::step(int notches, bool shift)
{
    if (notches == 0) return;
    const bool wide = shift || isSet(*this, Property::JUMP_BY_12);
    const int number = getNumber() + notches * (wide ? OCTAVE : 1);
    const Range range = getRange();
    if (number >= range.lowest && number <= range.highest) choose(number);
}

void EditBox::keyPressEvent(QKeyEvent* event)
{
    QLineEdit::keyPressEvent(event);
    const bool ends = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Escape;
    if (!ends || qobject_cast<QDialog*>(window()) == nullptr) event->accept();
}

void EditBox::keyReleaseEvent(QKeyEvent* event)
{
    QLineEdit::keyReleaseEvent(event);
    event->accept();
}

int EditBox::stepsOf(int key)
{
    switch (key) {
        case Qt::Key_Up:
            return 1;
        case Qt::Key_Down:
            return -1;
        case Qt::Key_PageUp:
            return 10;
        case Qt::Key_PageDown:
            return -10;
        default:
            return 0;
    }
}

void EditBox::wheelEvent(QWheelEvent* event)
{
    if (isSet(*this, Property::NOWHEEL)) return event->ignore();
    step(wheel.takeNotches(*event), event->modifiers().testFlag(Qt::ShiftModifier));
    event->accept();
}

PopupMenu& EditBox::makeTextMenu()
{
    struct Command {
        QString name;
        bool enabled;
        std::function<void()> execute;
    };
    const bool canWrite = !isReadOnly();
    const std::vector<Command> commands{
        {tr("Undo"), canWrite && isUndoAvailable(), [this] { undo(); }},
        {tr("Cut"), canWrite && hasSelectedText(), [this] { cut(); }},
        {tr("Copy"), hasSelectedText(), [this] { copy(); }},
        {tr("Paste"), canWrite && !QApplication::clipboard()->text().isEmpty(), [this] { paste(); }},
        {tr("Select all"), !text().isEmpty(), [this] { selectAll(); }}};
    auto* menu = new PopupMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const Command& command : commands) menu->addItem({.text = command.name, .enabled = command.enabled});
    menu->onChosen = [commands](int chosen) { commands[static_cast<std::size_t>(chosen)].execute(); };
    return *menu;
}

void EditBox::contextMenuEvent(QContextMenuEvent* event)
{
    const bool notes = isSet(*this, Property::SHOW_NOTE_STRING);
    Range range = getRange();
    if (notes) range = {std::max(range.lowest, 0), std::min(range.highest, HIGHEST_DATA)};
    if (!notes && (range.highest - range.lowest >= LONGEST_MENU || range.lowest < 0 || range.highest <= 0))
        return makeTextMenu().show(event->globalPos());

    auto* menu = new PopupMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (int number = range.lowest; number <= range.highest; ++number) {
        const QString label = notes ? textOf(number) + " (" + QString::number(number) + ")" : textOf(number);
        menu->addItem({.text = label, .id = number});
    }
    menu->setSelected(getNumber());
    menu->onChosen = [this](int number) { choose(number); };
    menu->show(event->globalPos());
}
}  // namespace Gui
