#pragma once

#include "platform/Event.h"

namespace Host
{
/// The signals by which a user ends the program: interrupt, terminate, and hang-up where it is not ignored. The first
/// one only sets an event, so that the end can be an orderly one; a second one ends the process at once. The user
/// signal 1 asks for the record to be saved and sets the event too. Neither a closed pipe nor a terminal in the
/// background stops the music.
///
/// One object per process, for the length of `run`.
class ProcessSignals
{
public:
    explicit ProcessSignals(Event& event);
    ~ProcessSignals();

    ProcessSignals(const ProcessSignals&) = delete;
    ProcessSignals& operator=(const ProcessSignals&) = delete;

    bool isEndRequested() const;

    /// Whether the record was asked for since the last call.
    bool takeSaveRequest();
};
}  // namespace Host
