#pragma once

#include <bitset>
#include <iosfwd>
#include <vector>

#include "backend/model/AxisConfiguration.h"
#include "backend/model/JoystickButtonConfiguration.h"
#include "backend/values/ElementMap.h"
#include "platform/Export.h"

namespace Backend::Joystick
{
/// The buttons, by joystick and number. It holds every button that there is, and no other.
class JoystickButtonConfigurationMap final
    : public Component::ElementMap<JoystickButtonConfiguration, JoyButtonElementId>
{
};

/// The axes, likewise.
class AxisConfigurationMap final : public Component::ElementMap<AxisConfiguration, JoyAxisElementId>
{
};

/// What the axes and buttons of both joysticks do, and which joysticks are disabled: the content of a program's
/// section.
struct ORV_API JoystickConfiguration {
    JoystickButtonConfigurationMap buttons;
    AxisConfigurationMap axes;
    std::bitset<JOYSTICKS> disabled;

    /// Nothing is bound; `clear` leaves which joysticks are disabled.
    JoystickConfiguration() { clear(); }
    void clear();

    /// Each takes the place of the one of its id. An id that is not valid is passed over.
    void put(const JoystickButtonConfiguration& button);
    void put(const AxisConfiguration& axis);

    /// The children of a "Joystick" element, each in place of the one of its id.
    void readXml(const XmlElement& section, const FunctionManagement::FunctionFactory& create);
    /// A line for each, after `indent` TABs, of those that are bound: axes, then buttons.
    void writeXml(std::ostream& out, int indent) const;

    std::vector<JoystickButtonConfiguration> allButtons() const;
    std::vector<AxisConfiguration> allAxes() const;
};
}  // namespace Backend::Joystick
