#pragma once

#include <memory>
#include <string>

#include "host/devices/MidiSystem.h"
#include "host/synthesizer/Sound.h"

namespace Host
{
/// Opens the first system that is available: a JACK graph (PipeWire's included), else the ALSA sequencer, else only a
/// sound output, else nothing. Prints nothing on standard error. `wake` is set when `refresh` has something to do.
/// `ports` holds the ports of earlier runs, none of them found. Control thread.
std::unique_ptr<MidiSystem> openMidiSystem(const std::string& clientName, Ports& ports, Event& wake,
                                           const Sound& sound = {});

/// The name of output 0 in every run: the built-in synthesizer; empty where the program has none.
std::string firstOutputName();
}  // namespace Host
