#include "host/run/PortList.h"

#include <algorithm>
#include <charconv>

#include "host/InputError.h"

namespace Host
{
using Backend::MidiEngine::MidiInputPorts;
using Backend::MidiEngine::MidiOutputPort;
using Backend::MidiEngine::MidiOutputPorts;

namespace
{
template <class List>
std::string describe(const std::string& title, const List& ports)
{
    std::string text = title + (ports.empty() ? "\n  none\n" : "\n");
    for (std::size_t index = 0; index < ports.size(); ++index)
        text += (index < 10    ? "   "
                 : index < 100 ? "  "
                               : " ") +
                std::to_string(index) + "  " + ports[index].getDisplayName() + "\n";
    return text;
}
}  // namespace

std::string describePorts(const MidiInputPorts& inputs, const MidiOutputPorts& outputs)
{
    return describe("Inputs", inputs) + describe("Outputs", outputs);
}

int findOutput(const MidiOutputPorts& outputs, const std::string& text)
{
    const auto named = std::ranges::find(outputs, text, &MidiOutputPort::name);
    if (named != outputs.end()) return static_cast<int>(named - outputs.begin());
    std::size_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || number >= outputs.size())
        throw InputError("--default-output: there is no output '" + text + "' (orvane ports lists them)");
    return static_cast<int>(number);
}
}  // namespace Host
