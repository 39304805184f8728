#pragma once

#include "platform/Event.h"

namespace Host
{
/// The signals that a user sends to the program while it plays. Each only sets an event, so that the control thread can
/// end the notes first:
///
/// - interrupt, terminate, and hang-up unless it is ignored: the end. A second one ends the process at once.
/// - the terminal's stop signal (Ctrl+Z), unless it is ignored: the process is to be suspended.
/// - user signal 1: the record is to be saved.
///
/// A broken pipe and reading from the terminal in the background are ignored. On Windows only the end can be requested:
/// by Ctrl+C or Ctrl+Break, the closed console, the log-off and the shut-down. One object per process, for the length of
/// `run`.
class ProcessSignals
{
public:
    explicit ProcessSignals(Event& event);
    ~ProcessSignals();

    ProcessSignals(const ProcessSignals&) = delete;
    ProcessSignals& operator=(const ProcessSignals&) = delete;

    bool isEndRequested() const;

    /// Whether that was requested since the last call.
    bool takeSaveRequest();
    bool takeSuspendRequest();

    /// Suspends the whole process, and returns when it continues; at once if the system does not allow it to stop, as
    /// for a process group without a shell. The terminal has its old mode meanwhile (`RawTerminal`).
    void suspend();
};
}  // namespace Host
