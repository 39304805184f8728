#pragma once

#include <bitset>
#include <iosfwd>
#include <vector>

#include "backend/model/AxisConfiguration.h"
#include "backend/model/Edit.h"
#include "backend/model/JoystickButtonConfiguration.h"
#include "backend/values/ElementMap.h"
#include "platform/Export.h"

namespace Backend::Joystick
{
/// The buttons by their ids. It always contains all buttons of both joysticks.
class JoystickButtonConfigurationMap final
    : public Component::ElementMap<JoystickButtonConfiguration, JoyButtonElementId>
{
};

/// The axes by their ids, all of them as well.
class AxisConfigurationMap final : public Component::ElementMap<AxisConfiguration, JoyAxisElementId>
{
};

/// The bindings of the axes and buttons of both joysticks, and which joysticks are disabled: the content of the
/// joystick section.
struct ORV_API JoystickConfiguration {
    JoystickButtonConfigurationMap buttons;
    AxisConfigurationMap axes;
    std::bitset<JOYSTICKS> disabled;

    /// Nothing is bound. `clear` keeps the disabled joysticks.
    JoystickConfiguration() { clear(); }
    void clear();

    /// Replaces the configuration of an id; ignored if the id is not valid.
    void put(const JoystickButtonConfiguration& button);
    void put(const AxisConfiguration& axis);

    /// Reads the children of a "Joystick" element, each in place of the present one of its id.
    void readXml(const XmlElement& section, const FunctionManagement::FunctionFactory& create);
    /// Writes a line for each bound axis and button, indented by `indent` TABs.
    void writeXml(std::ostream& out, int indent) const;

    /// The number of a button or an axis as a record that the window edits.
    static constexpr RecordId recordOf(const JoyButtonElementId& id) { return id.joystick << 8 | id.button; }
    static constexpr RecordId recordOf(const JoyAxisElementId& id) { return 1 << 16 | id.joystick << 8 | id.axis; }
    /// The button or the axis of a record; not valid for a record of the other kind.
    static constexpr JoyButtonElementId buttonOf(RecordId id) { return {id >> 8, id & 0xFF}; }
    static constexpr JoyAxisElementId axisOf(RecordId id) { return {(id >> 8) - (1 << 8), id & 0xFF}; }

    std::vector<JoystickButtonConfiguration> allButtons() const;
    std::vector<AxisConfiguration> allAxes() const;
};
}  // namespace Backend::Joystick
