#pragma once

#include "backend/model/KeyConfiguration.h"
#include "backend/values/ElementMap.h"
#include "platform/Export.h"

namespace Backend::ComputerInput
{
/// The keys that have a configuration, by ascending packed form.
class ORV_API KeyConfigurationMap final : public Component::ElementMap<KeyConfiguration, Key>
{
public:
    /// Takes the place of what the map holds for its key.
    void put(KeyConfiguration configuration);

    /// The same keys, configured alike.
    bool operator==(const KeyConfigurationMap& other) const;
};
}  // namespace Backend::ComputerInput
