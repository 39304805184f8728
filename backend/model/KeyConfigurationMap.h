#pragma once

#include "backend/model/KeyConfiguration.h"
#include "backend/values/ElementMap.h"
#include "platform/Export.h"

namespace Backend::ComputerInput
{
/// The configured keys, sorted by their packed form.
class ORV_API KeyConfigurationMap final : public Component::ElementMap<KeyConfiguration, Key>
{
public:
    /// Adds a configuration, in place of the present one of its key.
    void put(KeyConfiguration configuration);

    /// Whether keys and configurations are equal.
    bool operator==(const KeyConfigurationMap& other) const;
};
}  // namespace Backend::ComputerInput
