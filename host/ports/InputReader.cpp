#include "host/ports/InputReader.h"

namespace Host
{
void InputReader::start(InputReceiver& receiver)
{
    stopping.store(false);
    thread.start("orvane inputs", [this, &receiver] { run(receiver); });
}

void InputReader::stop()
{
    stopping.store(true);
    arrived.set();
    thread.join();
}

void InputReader::run(InputReceiver& receiver)
{
    requestRealTimePriority(RealTimeStep::backend);
    while (!stopping.load()) {
        arrived.wait();
        for (std::size_t index = 0; index < ports.inputs().size(); ++index)
            post(*ports.inputs()[index], static_cast<int>(index), receiver);
    }
}

void InputReader::post(InputPort& port, int input, InputReceiver& receiver)
{
    port.arrived.drain([&](const StampedMessage& next) {
        receiver.post(toInputEvent(next.message, input));
        return true;
    });
    for (auto lost = port.lost.exchange(0); lost > 0; --lost) receiver.postLost(input);
}
}  // namespace Host
