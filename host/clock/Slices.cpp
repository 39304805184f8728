#include "host/clock/Slices.h"

namespace Host
{
void Slices::play(int pulses)
{
    if (next > LAST_PULSE - pulses) restartCounter();
    playTo(next + pulses);
}

// A slice that goes back to the first pulse plays the events whose pulses would never come.
void Slices::restartCounter()
{
    playTo(FIRST_PULSE);
    reset();
}

void Slices::playTo(std::int32_t endPpq)
{
    if (load == nullptr) {
        playTimeSlice(next, endPpq);
    } else {
        const auto start = std::chrono::steady_clock::now();
        playTimeSlice(next, endPpq);
        load->add(std::chrono::steady_clock::now() - start);
    }
    next = endPpq;
    present.store(endPpq, std::memory_order_relaxed);
    played.fetch_add(1, std::memory_order_release);
}
}  // namespace Host
