#pragma once

#include <atomic>
#include <cstdint>

#include "api/OrvIF.h"
#include "api/OrvMessageManager.h"
#include "host/ports/InputReceiver.h"

namespace Host
{
/// Passes the events of the inputs to the backend.
class BackendInputs final : public InputReceiver
{
public:
    /// `backend` must outlive this object.
    explicit BackendInputs(Backend::OrvIF& backend) : orv(backend) {}

    bool play(const Event& event) override
    {
        noteActive(event.getInput());
        return orv.playMidiInputEvent(event);
    }
    void defer(int input) override
    {
        noteActive(input);
        orv.deferMidiInputEvent(input);
    }
    void post(const Event& event) override { orv.getOrvMessageManager().postProcessMidiInputEvent(event); }
    void postLost(int input) override { orv.getOrvMessageManager().postMidiInputEventLost(input); }

    /// The inputs by which events came since the last call, by bits; those above 63 are left out. Any thread.
    std::uint64_t takeActive() { return active.exchange(0, std::memory_order_relaxed); }

private:
    void noteActive(int input)
    {
        constexpr int BITS = 64;
        if (input >= 0 && input < BITS) active.fetch_or(std::uint64_t{1} << input, std::memory_order_relaxed);
    }

    Backend::OrvIF& orv;
    std::atomic<std::uint64_t> active{0};
};
}  // namespace Host
