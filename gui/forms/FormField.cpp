#include "gui/forms/FormField.h"

#include <QObject>
#include <QRegularExpression>
#include <algorithm>

#include "backend/values/Note.h"

namespace Gui::Forms
{
using Backend::MidiEngine::Note;

namespace
{
QString shown(const FormField& field, int number)
{
    return field.edit == FormField::Edit::note ? QString::fromStdString(Note(number).toXmlString())
                                               : QString::number(number);
}

/// With a sign where it is added; nothing added is blank.
QString shownChange(int number, bool isRelative)
{
    if (isRelative && number == 0) return {};
    return (isRelative && number > 0 ? QStringLiteral("+") : QString()) + QString::number(number);
}

Taken takenNumber(const FormField& field, const QString& text)
{
    const bool isChange = field.edit == FormField::Edit::change;
    bool isNumber = false;
    int number = text.toInt(&isNumber);
    static const QRegularExpression noteName(QStringLiteral("^[A-Ga-g][#b]?(-1|[0-9])?$"));
    if (field.edit == FormField::Edit::note && noteName.match(text).hasMatch()) {
        isNumber = true;
        number = Note(text.toStdString()).getNumber();
    }
    if (!isNumber) return {field.get(), QObject::tr("\"%1\" is no number.").arg(text)};
    const bool isRelative = isChange && (text.startsWith('+') || text.startsWith('-'));
    const int reach = std::max(std::abs(field.lowest), std::abs(field.highest));
    const int lowest = isRelative ? -reach : isChange ? std::max(0, field.lowest) : field.lowest;
    const int highest = isRelative ? reach : field.highest;
    const int limited = std::clamp(number, lowest, highest);
    Taken result{isChange ? shownChange(limited, isRelative) : shown(field, limited)};
    if (limited != number)
        result.remark = QObject::tr("From %1 to %2.").arg(shown(field, lowest), shown(field, highest));
    return result;
}
}  // namespace

Taken taken(const FormField& field, const QString& typed)
{
    const QString text = typed.trimmed();
    switch (field.edit) {
        case FormField::Edit::text:
            return {text};
        case FormField::Edit::list:
            if (std::ranges::find(field.choices, text, &FormField::Choice::text) != field.choices.end()) return {text};
            return {field.get(), QObject::tr("\"%1\" is not in the list.").arg(text)};
        default:
            if (!text.isEmpty()) return takenNumber(field, text);
            if (field.mayBeBlank || field.edit == FormField::Edit::change) return {text};
            return {field.get(), QObject::tr("A number is needed.")};
    }
}
}  // namespace Gui::Forms
