#pragma once

#include "backend/model/ButtonConfiguration.h"
#include "backend/values/Key.h"
#include "platform/Export.h"

namespace Backend::ComputerInput
{
/// The binding of a key of the computer, with the modifiers of its press. Without entries the key is unbound. A copy
/// has copies of its functions.
class ORV_API KeyConfiguration final : public ButtonConfiguration
{
public:
    Key key{};
    bool global = true;  ///< captured by the global keyboard; if not, another program with the focus gets it

    KeyConfiguration() = default;
    /// An unbound key.
    explicit KeyConfiguration(const Key& unbound) : key(unbound) {}

    /// From a "Key" element. An unknown key gives a key of code -1.
    static KeyConfiguration fromXml(const XmlElement& element, const FunctionManagement::FunctionFactory& create);
    void writeXml(std::ostream& out, int indent) const override;

    bool operator==(const KeyConfiguration& other) const
    {
        return key == other.key && global == other.global && hasSameEntries(other);
    }
};
}  // namespace Backend::ComputerInput
