#pragma once

#include <string>
#include <vector>

#include "backend/model/MidiPort.h"
#include "platform/Export.h"

namespace Backend::RetroRecord
{
/// What each output is called in a file name: its name with `_` for `/`, `:` and control characters, at most 120 bytes
/// of it. A twin is numbered, "Piano_2", so that no two are equal.
ORV_API std::vector<std::string> fileNamesOf(const MidiEngine::MidiOutputPorts& ports);
}  // namespace Backend::RetroRecord
