#include "gui/screens/joystick/JoystickButtonRecords.h"

#include <QObject>
#include <utility>

#include "backend/model/PresetSections.h"
#include "gui/forms/FunctionCaption.h"
#include "gui/screens/joystick/PartEdits.h"

namespace Gui::Joystick
{
using namespace Backend;
using namespace Backend::Joystick;

namespace
{
struct Direction {
    char16_t arrow;
    const char* name;
};
/// In the order of their numbers.
constexpr std::array<Direction, DIRECTIONS.size()> HAT{{{u'\u2191', QT_TRANSLATE_NOOP("QObject", "forward")},
                                                        {u'\u2193', QT_TRANSLATE_NOOP("QObject", "back")},
                                                        {u'\u2190', QT_TRANSLATE_NOOP("QObject", "left")},
                                                        {u'\u2192', QT_TRANSLATE_NOOP("QObject", "right")}}};

const Direction* directionOf(const JoyButtonElementId& id)
{
    return id.button < FIRST_DIRECTION ? nullptr : &HAT[static_cast<std::size_t>(id.button - FIRST_DIRECTION)];
}
}  // namespace

QString JoystickButtonRecords::labelOf(Id id)
{
    const Direction* const direction = directionOf(buttonOf(id));
    return direction != nullptr ? QString(QChar(direction->arrow)) : QString::number(buttonOf(id).button + 1);
}

void JoystickButtonRecords::take(const std::vector<JoystickButtonConfiguration>& reported)
{
    for (const JoystickButtonConfiguration& button : reported) {
        const auto* const present = copies.buttons.findElement(button.id);
        if (present != nullptr && *present == button) continue;
        copies.put(button);
        bindingsReplaced();
    }
}

const JoystickButtonRecords::Kind& JoystickButtonRecords::getKind() const
{
    static const Kind KIND{PresetSections::JOYSTICK.rootElement,
                           "Button",
                           Forms::Selection::Ids::fixed,
                           QObject::tr("button"),
                           QObject::tr("buttons"),
                           QObject::tr("Clear"),
                           false};
    return KIND;
}

std::vector<RecordId> JoystickButtonRecords::getIds() const
{
    std::vector<Id> ids;
    for (int joystick = 0; joystick < JOYSTICKS; ++joystick)
        for (int button = 0; button < BUTTONS; ++button) ids.push_back(idOf({joystick, button}));
    return ids;
}

QString JoystickButtonRecords::describe(Id id) const
{
    QString name = nameOf(id);
    name[0] = name[0].toUpper();
    return get(id).isEmpty() ? QObject::tr("%1: does nothing.").arg(name)
                             : name + '\n' + Forms::FunctionCaption::describe(get(id));
}

QString JoystickButtonRecords::nameOf(Id id) const
{
    const JoyButtonElementId button = buttonOf(id);
    const Direction* const direction = directionOf(button);
    const QString joystick = QObject::tr("joystick %1").arg(button.joystick + 1);
    return direction != nullptr ? QObject::tr("%1 hat %2").arg(joystick, QObject::tr(direction->name))
                                : QObject::tr("%1 button %2").arg(joystick).arg(button.button + 1);
}

std::vector<RecordEdit> JoystickButtonRecords::makeAdditions(std::vector<Fields> added,
                                                             const Forms::Selection& selection) const
{
    std::vector<Id> targets = selection.getTargets(added.size());
    if (targets.empty())
        for (Fields& fields : added) {
            const auto number = [&fields](const char* name) {
                return QString::fromStdString(RecordFields::valueOf(fields, name)).toInt();
            };
            targets.push_back(idOf({number("joystick"), number("button")}));
        }
    return PartEdits::setFunctions(targets, std::move(added));
}

std::vector<RecordEdit> JoystickButtonRecords::makeRemovals(const std::vector<Id>& removed) const
{
    return PartEdits::clearFunctions(removed);
}
}  // namespace Gui::Joystick
