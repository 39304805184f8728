#pragma once

#include "api/OrvIF.h"
#include "host/performance/PerformanceCommand.h"

namespace Host
{
/// The event of an input that the command stands for.
Backend::MidiEngine::OrvMidiMessage toEvent(const MidiCommand& command);

/// Posts a command of a performance to the backend; `whenSaved` gets the result of saving the record, on the recorder's
/// thread. Any thread.
void post(Backend::OrvIF& orv, const Command& command, const Backend::RetroRecord::SaveListener& whenSaved);
}  // namespace Host
