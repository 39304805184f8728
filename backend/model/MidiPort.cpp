#include "backend/model/MidiPort.h"

namespace Backend::MidiEngine
{
std::string MidiPort::getDisplayName() const
{
    std::string text = name;
    if (!enabled) text += " (Not Enabled)";
    if (!found) text += " (Not Found)";
    if (couldNotOpen) text += " (Couldn't Open)";
    return text;
}
}  // namespace Backend::MidiEngine
