#pragma once

#include <string>

#include "backend/model/MidiPort.h"

namespace Host
{
/// Both lists for the user, a port a line: its number and its name with its state.
std::string describePorts(const Backend::MidiEngine::MidiInputPorts& inputs,
                          const Backend::MidiEngine::MidiOutputPorts& outputs);

/// The port that the user means: one of that name, otherwise that number. Throws InputError, which names the option, if
/// there is none.
int findInput(const Backend::MidiEngine::MidiInputPorts& inputs, const std::string& text, const std::string& option);
int findOutput(const Backend::MidiEngine::MidiOutputPorts& outputs, const std::string& text,
               const std::string& option = "--default-output");
}  // namespace Host
