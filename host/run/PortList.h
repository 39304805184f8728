#pragma once

#include <string>

#include "backend/model/MidiPort.h"

namespace Host
{
/// Both lists as text, one line for each port: its number, name and state.
std::string describePorts(const Backend::MidiEngine::MidiInputPorts& inputs,
                          const Backend::MidiEngine::MidiOutputPorts& outputs);

/// The port with that name, or else with that number. Throws InputError, which names the option, if there is none.
int findInput(const Backend::MidiEngine::MidiInputPorts& inputs, const std::string& text, const std::string& option);
int findOutput(const Backend::MidiEngine::MidiOutputPorts& outputs, const std::string& text,
               const std::string& option = "--default-output");
}  // namespace Host
