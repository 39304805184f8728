#pragma once

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "backend/model/MidiPort.h"
#include "host/ports/Port.h"
#include "host/ports/PortTable.h"

namespace Host
{
/// All ports of the host by number. A port stays in its list when its device goes, so that its number stays; only the
/// control thread adds ports and settles which device they stand for, while any thread reads the lists.
class Ports
{
public:
    static constexpr std::size_t MOST = PortTable<InputPort>::MOST;

    /// Takes the next number. The name is numbered if it is taken ("Piano", "Piano 2"). Null, and the name kept as left
    /// out, if there are `MOST` already.
    InputPort* addInput(const std::string& name);
    OutputPort* addOutput(const std::string& name);

    const PortTable<InputPort>& inputs() const { return inputPorts; }
    const PortTable<OutputPort>& outputs() const { return outputPorts; }

    /// Settles the port of each device that a scan found, for as long as the device is there: the port that it had
    /// before in this run, else one without a device by exactly its name, else the first twin without one ("Piano 2"),
    /// else a new one at the end. A port of which the device is gone is not found any more: `gone` is called for it
    /// first, by its number. `came` is called for each that got a device.
    using Settle = std::function<void(std::size_t index)>;
    void settleInputs(const std::vector<MidiDevice>& devices, const Settle& gone, const Settle& came);
    void settleOutputs(const std::vector<MidiDevice>& devices, const Settle& gone, const Settle& came);

    /// How many names found no number.
    std::size_t leftOut() const { return leftOutNames.size(); }

    /// The lists as the backend wants them. The control thread.
    Backend::MidiEngine::MidiInputPorts inputList() const;
    Backend::MidiEngine::MidiOutputPorts outputList() const;

private:
    PortTable<InputPort> inputPorts;
    PortTable<OutputPort> outputPorts;
    std::set<std::string> leftOutNames;
};
}  // namespace Host
