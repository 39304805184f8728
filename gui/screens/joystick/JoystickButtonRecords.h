#pragma once

#include <vector>

#include "backend/model/JoystickConfiguration.h"
#include "gui/forms/ButtonRecords.h"

namespace Gui::Joystick
{
/// The buttons of both joysticks, the directions of the hat included, with what they execute. The GUI thread.
class JoystickButtonRecords final : public Forms::ButtonRecords
{
public:
    using ButtonId = Backend::Joystick::JoyButtonElementId;
    using ButtonRecords::ButtonRecords;

    static Id idOf(const ButtonId& button) { return Backend::Joystick::JoystickConfiguration::recordOf(button); }
    static ButtonId buttonOf(Id id) { return Backend::Joystick::JoystickConfiguration::buttonOf(id); }
    /// "1" to "32", and arrows for the directions of the hat.
    static QString labelOf(Id id);

    // The copies
    /// In place of the present ones.
    void take(const std::vector<Backend::Joystick::JoystickButtonConfiguration>& reported);
    const Backend::ButtonConfiguration& get(Id id) const { return *find(id); }

    const Kind& getKind() const override;
    std::vector<Id> getIds() const override;
    QString describe(Id id) const override;
    /// "joystick 1 button 3", "joystick 2 hat left".
    QString nameOf(Id id) const override;
    std::vector<Forms::FormField> fieldsOf(Id) override { return {}; }
    /// As for keys: in place of what the selected buttons do.
    std::vector<Backend::RecordEdit> makeAdditions(std::vector<Backend::Fields> added,
                                                   const Forms::Selection& selection) const override;
    /// They stay, without functions.
    std::vector<Backend::RecordEdit> makeRemovals(const std::vector<Id>& removed) const override;

protected:
    const Backend::ButtonConfiguration* find(Id id) const override { return copies.buttons.findElement(buttonOf(id)); }
    Backend::ButtonConfiguration& at(Id id) override { return *copies.buttons.findElement(buttonOf(id)); }

private:
    Backend::Joystick::JoystickConfiguration copies;
};
}  // namespace Gui::Joystick
