#include "backend/persistence/RegistrySettings.h"

namespace Backend
{
namespace
{
void setBit(std::vector<bool>& bits, int index, bool value)
{
    if (index < 0) return;
    const auto at = static_cast<std::size_t>(index);
    if (at >= bits.size()) bits.resize(at + 1);
    bits[at] = value;
}
}  // namespace

void RegistrySettings::setMidiInputEnabled(int port, bool enabled) { setBit(enabledMidiInputs, port, enabled); }

void RegistrySettings::setMidiOutputEnabled(int port, bool enabled) { setBit(enabledMidiOutputs, port, enabled); }
}  // namespace Backend
