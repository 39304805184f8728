#include "backend/model/KeyConfigurationMap.h"

namespace Backend::ComputerInput
{
void KeyConfigurationMap::put(KeyConfiguration configuration)
{
    const Key key = configuration.key;
    ElementMap::put(key, std::move(configuration));
}

bool KeyConfigurationMap::operator==(const KeyConfigurationMap& other) const
{
    if (size() != other.size()) return false;
    const auto ours = createIterator();
    const auto theirs = other.createIterator();
    while (const KeyConfiguration* configuration = ours->next())
        if (!(*configuration == *theirs->next())) return false;
    return true;
}
}  // namespace Backend::ComputerInput
