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
class EventRecorder;
struct ResetRequest;

/// Proof of being inside a time slice, with the engine lock held: only the engine makes one, and whatever plays takes
/// it as an argument. Inside a slice nothing allocates in the steady state, calls the system, takes another lock or
/// throws. What must wait until the lock is left is collected here.
class Slice
{
public:
    Slice(const Slice&) = delete;
    Slice& operator=(const Slice&) = delete;

    /// States for the static analysis what holding a slice means.
    static void proves([[maybe_unused]] const CriticalSection& section) ASSERT_CAPABILITY(section) {}

private:
    friend class MidiEngine;
    Slice() = default;

    struct Drop {
        OrvMidiMessage event;
        const char* why;
    };

    ResetRequest* served = nullptr;                // resets done, newest first
    WindowHandle window;                           // to be woken, if anything was posted to it
    EventRecorder* recorder = nullptr;             // the same
    EventLog* log = nullptr;                       // the same
    std::optional<std::uint32_t> milliseconds;     // the slice's time, once it was read
    Controls::ControlUpdates* controls = nullptr;  // the same
    std::vector<Drop> drops;                       // for the debug stream
};
}  // namespace Backend::MidiEngine
