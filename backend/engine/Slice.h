#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "backend/values/OrvMidiMessage.h"
#include "platform/CriticalSection.h"
#include "platform/WindowHandle.h"

namespace Backend::Controls
{
class ControlUpdates;
}

namespace Backend::MidiEngine
{
class EventLog;
class MidiEngineMessageManager;
class EventRecorder;
struct ResetRequest;

/// Proof of being inside a time slice, or of playing an event of an input at once, with the engine lock held: only the
/// engine can make a `Slice`, and every function that plays takes one as an argument. Inside a slice nothing is
/// allocated in the steady state, nothing calls the system, takes another lock or throws. What has to wait until the
/// lock is released is collected here.
class Slice
{
public:
    Slice(const Slice&) = delete;
    Slice& operator=(const Slice&) = delete;

    /// For the static analysis: a slice exists, so the lock is held.
    static void proves([[maybe_unused]] const CriticalSection& section) ASSERT_CAPABILITY(section) {}

private:
    friend class MidiEngine;
    Slice() = default;

    struct Drop {
        OrvMidiMessage event;
        const char* why;
    };

    ResetRequest* served = nullptr;                // executed resets, newest first
    WindowHandle window;                           // to be woken, if anything was posted to it
    EventRecorder* recorder = nullptr;             // the same
    EventLog* log = nullptr;                       // the same
    std::optional<std::uint32_t> milliseconds;     // the time of the slice, once it was read
    Controls::ControlUpdates* controls = nullptr;  // to be woken as well
    MidiEngineMessageManager* commands = nullptr;  // the same
    std::vector<Drop> drops;                       // for the debug stream
};
}  // namespace Backend::MidiEngine
