#include "gui/forms/FormField.h"

#include <QObject>
#include <QRegularExpression>
#include <algorithm>
#include <cstdint>
#include <optional>

#include "backend/values/Fraction.h"
#include "backend/values/Note.h"
#include "backend/values/NoteIntervals.h"

namespace Gui::Forms
{
using Backend::MidiEngine::Note;

namespace
{
using Edit = FormField::Edit;

QString shown(const FormField& field, int number)
{
    if (field.edit == Edit::note) return QString::fromStdString(Note(number).toXmlString());
    return field.edit == Edit::length ? QString::fromStdString(noteIntervalName(number)) : QString::number(number);
}

/// With a sign where it is added; nothing added is blank.
QString shownChange(int number, bool isRelative)
{
    if (isRelative && number == 0) return {};
    return (isRelative && number > 0 ? QStringLiteral("+") : QString()) + QString::number(number);
}

/// The nearest number that the field allows.
Taken limited(const FormField& field, std::int64_t number, bool isRelative)
{
    const bool isChange = field.edit == Edit::change;
    FormField::Range range = field.getRange();
    const int reach = std::max(std::abs(range.lowest), std::abs(range.highest));
    if (isRelative) range = {-reach, reach};
    if (isChange && !isRelative) range.lowest = std::max(0, range.lowest);
    range.highest = std::max(range.lowest, range.highest);
    const int nearest = static_cast<int>(std::clamp<std::int64_t>(number, range.lowest, range.highest));
    Taken result{isChange ? shownChange(nearest, isRelative) : shown(field, nearest)};
    if (nearest != number)
        result.remark = QObject::tr("From %1 to %2.").arg(shown(field, range.lowest), shown(field, range.highest));
    return result;
}

bool isRelative(const FormField& field, const QString& text)
{
    return field.edit == Edit::change && (text.isEmpty() || text.startsWith('+') || text.startsWith('-'));
}

/// The number that a text stands for.
std::optional<int> numberOf(const FormField& field, const QString& text)
{
    static const QRegularExpression noteName(QStringLiteral("^[A-Ga-g][#b]?(-1|[0-9])?$"));
    if (field.edit == Edit::note && noteName.match(text).hasMatch()) return Note(text.toStdString()).getNumber();
    if (const auto choice = std::ranges::find(field.choices, text, &FormField::Choice::text);
        field.edit == Edit::length && choice != field.choices.end())
        return choice->value;
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    return isNumber ? std::optional(number) : std::nullopt;
}

Taken takenNumber(const FormField& field, const QString& text)
{
    const std::optional<int> number = numberOf(field, text);
    if (!number) return {field.get(), QObject::tr("\"%1\" is no number.").arg(text)};
    return limited(field, *number, isRelative(field, text));
}

Taken takenFraction(const FormField& field, const QString& text)
{
    static const QRegularExpression form(QStringLiteral("^([0-9]{1,9})(?:[/_\\\\]([0-9]{1,9}))?$"));
    const auto match = form.match(text);
    if (!match.hasMatch()) return {field.get(), QObject::tr("\"%1\" is no fraction, such as 3/4.").arg(text)};
    const bool isInside = [&] {
        for (const QString& part : {match.captured(1), match.hasCaptured(2) ? match.captured(2) : QStringLiteral("1")})
            if (const int number = part.toInt(); number < 1 || number > Fraction::HIGHEST) return false;
        return true;
    }();
    return {QString::fromStdString(Fraction::fromXmlString(text.toStdString()).toDisplayString()),
            isInside ? QString() : QObject::tr("From 1 to %1, above and below.").arg(Fraction::HIGHEST)};
}

/// The next named length; from a length without a name the nearest one.
int steppedLength(int pulses, int steps)
{
    const int index = nearestNoteIntervalIndex(pulses);
    const bool isBetween = noteIntervalFromIndex(index) > pulses;
    return noteIntervalFromIndex(std::clamp(index + steps - (isBetween && steps > 0 ? 1 : 0), 1, NOTE_INTERVALS));
}
}  // namespace

Taken taken(const FormField& field, const QString& typed)
{
    const QString text = typed.trimmed();
    switch (field.edit) {
        case Edit::text:
            return {text};
        case Edit::list:
            if (std::ranges::find(field.choices, text, &FormField::Choice::text) != field.choices.end()) return {text};
            return {field.get(), QObject::tr("\"%1\" is not in the list.").arg(text)};
        case Edit::fraction:
            return takenFraction(field, text);
        default:
            if (!text.isEmpty()) return takenNumber(field, text);
            if (field.mayBeBlank || field.edit == Edit::change) return {text};
            return {field.get(), QObject::tr("A number is needed.")};
    }
}

Taken stepped(const FormField& field, const QString& value, int steps)
{
    if (steps == 0 || field.edit == Edit::list || field.edit == Edit::text || field.edit == Edit::fraction)
        return {value};
    const std::optional<int> number = numberOf(field, value);
    if (field.edit == Edit::length) return limited(field, steppedLength(number.value_or(0), steps), false);
    if (field.edit == Edit::change) {
        const bool adds = isRelative(field, value);
        return limited(field, std::int64_t{number.value_or(0)} + steps, adds);
    }
    const std::int64_t blank = std::int64_t{field.getRange().lowest} - 1;
    const std::int64_t next = number ? std::int64_t{*number} + steps : blank + steps;
    if (field.mayBeBlank && next <= blank) return {QString()};
    return limited(field, next, false);
}
}  // namespace Gui::Forms
