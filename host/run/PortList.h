#pragma once

#include <string>

#include "backend/midi/MidiPort.h"

namespace Host
{
/// Both lists for the user, a port a line: its number and its name with its state.
std::string describePorts(const Backend::MidiEngine::MidiInputPorts& inputs,
                          const Backend::MidiEngine::MidiOutputPorts& outputs);

/// The output that the user means: one of that name, otherwise that number. Throws InputError if there is none.
int findOutput(const Backend::MidiEngine::MidiOutputPorts& outputs, const std::string& text);
}  // namespace Host
