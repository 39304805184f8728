#pragma once

#include "backend/model/ButtonConfiguration.h"
#include "backend/model/JoyButtonElementId.h"
#include "platform/Export.h"

namespace Backend::Joystick
{
/// The binding of a button of a joystick. A copy has copies of its functions.
class ORV_API JoystickButtonConfiguration final : public ButtonConfiguration
{
public:
    JoyButtonElementId id{};

    JoystickButtonConfiguration() = default;
    /// An unbound button.
    explicit JoystickButtonConfiguration(const JoyButtonElementId& unbound) : id(unbound) {}

    /// From a "Button" element; without the name of a button the id is not valid.
    static JoystickButtonConfiguration fromXml(const XmlElement& element,
                                               const FunctionManagement::FunctionFactory& create);
    void writeXml(std::ostream& out, int indent) const override;

    bool operator==(const JoystickButtonConfiguration& other) const { return id == other.id && hasSameEntries(other); }
};
}  // namespace Backend::Joystick
