#pragma once

#include "backend/model/ButtonConfiguration.h"
#include "backend/values/Key.h"
#include "platform/Export.h"

namespace Backend::ComputerInput
{
/// What one key of the computer does, with the modifiers that it is pressed with. One without entries is an unbound
/// key. A copy holds functions of its own.
class ORV_API KeyConfiguration final : public ButtonConfiguration
{
public:
    Key key{};
    bool global = true;  ///< plays while the global keyboard is on; if not, the key passes to the foreground window

    KeyConfiguration() = default;
    /// An unbound key.
    explicit KeyConfiguration(const Key& unbound) : key(unbound) {}

    /// From a "Key" element. A text that is no key's gives the key of code -1.
    static KeyConfiguration fromXml(const XmlElement& element, const FunctionManagement::FunctionFactory& create);
    void writeXml(std::ostream& out, int indent) const override;

    bool operator==(const KeyConfiguration& other) const
    {
        return key == other.key && global == other.global && hasSameEntries(other);
    }
};
}  // namespace Backend::ComputerInput
