#pragma once

#include <string>

#include "backend/values/MidiMessage.h"
#include "platform/Export.h"

namespace Backend::Display
{
/// A message as a line of the log, in columns with tabs between and CR LF at the end: `prefix`, the channel from 1,
/// the event's name, its data with their names. What is no event is "-", without a prefix.
ORV_API std::string formatLine(const std::string& prefix, const MidiEngine::MidiMessage& message);
}  // namespace Backend::Display
