#include "host/clock/Slices.h"

namespace Host
{
void Slices::play(int pulses)
{
    if (next > LAST_PULSE - pulses) startAgain();
    playTo(next + pulses);
}

// Going back as a slice of its own plays what still waits for a pulse that would never come.
void Slices::startAgain()
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
    played.fetch_add(1, std::memory_order_release);
}
}  // namespace Host
