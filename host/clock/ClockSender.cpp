#include "host/clock/ClockSender.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "host/clock/ClockFollower.h"

namespace Host
{
namespace
{
constexpr int PULSES_PER_TICK = ClockFollower::PULSES_PER_TICK;

constexpr double NEAREST_PULSE = 0.5;

ShortMessage realTime(std::uint8_t status) { return {{status, 0, 0}, 1}; }

ShortMessage songPosition(int sixteenths)
{
    return {{StatusByte::SONG_POSITION, static_cast<std::uint8_t>(sixteenths & 0x7F),
             static_cast<std::uint8_t>(sixteenths >> 7 & 0x7F)},
            3};
}
}  // namespace

void ClockSender::setPort(OutputPort* clockPort, double position)
{
    end();
    port = clockPort;
    waitingCount = 0;
    ticks = static_cast<std::int64_t>(std::ceil((position - NEAREST_PULSE) / PULSES_PER_TICK));
}

void ClockSender::add(const Command& command)
{
    if (port != nullptr && waitingCount < waiting.size()) waiting[waitingCount++] = command;
}

bool ClockSender::passPulse(double position, double time, std::uint32_t newStamp)
{
    if (port == nullptr) return false;
    stamp = newStamp;
    std::size_t due = 0;
    for (; due < waitingCount && waiting[due].time <= time; ++due) send(waiting[due], position);
    std::shift_left(waiting.begin(), waiting.begin() + waitingCount, static_cast<std::ptrdiff_t>(due));
    waitingCount -= due;
    const bool isTick = position >= static_cast<double>(ticks * PULSES_PER_TICK) - NEAREST_PULSE;
    if (isTick) sendTick();
    return isTick || due > 0;
}

void ClockSender::send(const Command& command, double position)
{
    if (command.status == StatusByte::SONG_POSITION) {
        port->playClock(songPosition(command.sixteenths), stamp);
        return;
    }
    port->playClock(realTime(command.status), stamp);
    if (command.status == StatusByte::STOP) return;
    // A tick that was sent just before is sent again and keeps its number.
    const double sinceTick = position - static_cast<double>((ticks - 1) * PULSES_PER_TICK);
    const bool isRepeated = sinceTick < PULSES_PER_TICK / 2.0;
    songStart = isRepeated ? ticks - 1 : ticks;
    ++songs;
    if (isRepeated) port->playClock(realTime(StatusByte::TICK), stamp);
}

void ClockSender::sendTick()
{
    port->playClock(realTime(StatusByte::TICK), stamp);
    ++ticks;
}

void ClockSender::end()
{
    if (OutputPort* const last = std::exchange(port, nullptr)) last->playClock(realTime(StatusByte::STOP), stamp);
}
}  // namespace Host
