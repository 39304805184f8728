#pragma once

#include <string>
#include <vector>

#include "backend/model/MidiPort.h"
#include "platform/Export.h"

namespace Backend::RetroRecord
{
/// The names of the outputs for file names: with `_` for `/`, `:` and control characters, at most 120 bytes. Equal
/// names are numbered, "Piano_2".
ORV_API std::vector<std::string> fileNamesOf(const MidiEngine::MidiOutputPorts& ports);
}  // namespace Backend::RetroRecord
