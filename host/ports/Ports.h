#pragma once

#include <memory>
#include <string>
#include <vector>

#include "backend/midi/MidiPort.h"
#include "host/ports/Port.h"

namespace Host
{
/// All ports of the host by number. Filled before anything plays; from then on the lists stand still.
class Ports
{
public:
    /// Port numbers are signed bytes.
    static constexpr std::size_t MOST = 127;

    /// Takes the next number. The name is numbered if it is taken ("Piano", "Piano 2"). Null, and the port counted as
    /// left out, if there are `MOST` already. The port lives as long as this.
    InputPort* addInput(const std::string& name);
    OutputPort* addOutput(const std::string& name);

    const std::vector<std::unique_ptr<InputPort>>& inputs() const { return inputPorts; }
    const std::vector<std::unique_ptr<OutputPort>>& outputs() const { return outputPorts; }

    /// How many found no number.
    std::size_t leftOut() const { return tooMany; }

    /// The lists as the backend wants them. The control thread.
    Backend::MidiEngine::MidiInputPorts inputList() const;
    Backend::MidiEngine::MidiOutputPorts outputList() const;

private:
    std::vector<std::unique_ptr<InputPort>> inputPorts;
    std::vector<std::unique_ptr<OutputPort>> outputPorts;
    std::size_t tooMany = 0;
};
}  // namespace Host
