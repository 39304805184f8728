#pragma once

#include <string>

#include "backend/values/MidiMessage.h"
#include "platform/Export.h"

namespace Backend::Display
{
/// A message as a line of the log, in columns separated by TABs, with CR LF at the end: `prefix`, the channel from 1,
/// the name of the event, its data with their names. A message that is not valid is "-", without a prefix.
ORV_API std::string formatLine(const std::string& prefix, const MidiEngine::MidiMessage& message);
}  // namespace Backend::Display
