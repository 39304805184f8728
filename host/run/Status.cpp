#include "host/run/Status.h"

#include <algorithm>
#include <chrono>

namespace Host
{
namespace
{
template <class PortType>
std::string describeOpen(const PortTable<PortType>& ports)
{
    const auto isConnected = [](const auto& port) { return port->found && port->enabled && !port->couldNotOpen; };
    return std::to_string(std::ranges::count_if(ports, isConnected)) + " of " + std::to_string(ports.size());
}

std::string describeCount(const Port& port, std::uint64_t count, const char* what)
{
    return count == 0 ? "" : " | " + port.name + ": " + std::to_string(count) + what;
}

std::string describeLosses(const Ports& ports)
{
    std::string text;
    for (const auto& port : ports.inputs())
        text += describeCount(*port, port->limit.limitedCount(), " limited") +
                describeCount(*port, port->arrived.lossCount(), " lost");
    for (const auto& port : ports.outputs()) text += describeCount(*port, port->lossCount(), " lost");
    return text;
}

std::string microseconds(std::chrono::nanoseconds time)
{
    return std::to_string(std::chrono::ceil<std::chrono::microseconds>(time).count());
}
}  // namespace

int soundingNotes(const Ports& ports)
{
    int notes = 0;
    for (const auto& port : ports.outputs()) notes += port->soundingNotes();
    return notes;
}

std::string describeLoad(const SliceLoad::Summary& load)
{
    return microseconds(load.median) + "/" + microseconds(load.most) + "/" + microseconds(load.worst) + " us";
}

std::string describeStatus(const Status& status, const Ports& ports)
{
    return status.system + " | in " + describeOpen(ports.inputs()) + ", out " + describeOpen(ports.outputs()) + " | " +
           std::to_string(status.tempo) + " bpm | slice " + describeLoad(status.load) + ", " +
           std::to_string(status.lateSlices) + " late, lock held " + microseconds(status.longestHold) + " us | " +
           std::to_string(soundingNotes(ports)) + " notes | real time: " + status.realTime + describeLosses(ports);
}
}  // namespace Host
