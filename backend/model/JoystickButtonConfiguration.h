#pragma once

#include "backend/model/ButtonConfiguration.h"
#include "backend/model/JoyButtonElementId.h"
#include "platform/Export.h"

namespace Backend::Joystick
{
/// What one button of a joystick does. A copy holds functions of its own.
class ORV_API JoystickButtonConfiguration final : public ButtonConfiguration
{
public:
    JoyButtonElementId id{};

    JoystickButtonConfiguration() = default;
    /// A button that does nothing.
    explicit JoystickButtonConfiguration(const JoyButtonElementId& unbound) : id(unbound) {}

    /// From a "Button" element; one that names no button has an id that is not valid.
    static JoystickButtonConfiguration fromXml(const XmlElement& element,
                                               const FunctionManagement::FunctionFactory& create);
    void writeXml(std::ostream& out, int indent) const override;

    bool operator==(const JoystickButtonConfiguration& other) const { return id == other.id && hasSameEntries(other); }
};
}  // namespace Backend::Joystick
