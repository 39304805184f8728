#include "host/ports/InputReader.h"

namespace Host
{
void InputReader::start(Listener listener)
{
    stopping.store(false);
    thread.start("orvane inputs", [this, to = std::move(listener)] { run(to); });
}

void InputReader::stop()
{
    stopping.store(true);
    arrived.set();
    thread.join();
}

void InputReader::run(const Listener& listener)
{
    requestRealTimePriority(RealTimeStep::backend);
    while (!stopping.load()) {
        arrived.wait();
        for (std::size_t index = 0; index < ports.inputs().size(); ++index)
            ports.inputs()[index]->arrived.drain([&](const StampedMessage& next) {
                listener(toInputEvent(next.message, static_cast<int>(index)));
                return true;
            });
    }
}
}  // namespace Host
