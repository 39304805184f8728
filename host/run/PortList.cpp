#include "host/run/PortList.h"

#include <algorithm>
#include <charconv>

#include "host/common/InputError.h"

namespace Host
{
using Backend::MidiEngine::MidiInputPorts;
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
template <class List>
int findPort(const List& ports, const std::string& text, const std::string& option, const char* kind)
{
    const auto named = std::ranges::find_if(ports, [&](const auto& port) { return port.name == text; });
    if (named != ports.end()) return static_cast<int>(named - ports.begin());
    std::size_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || number >= ports.size())
        throw InputError(option + ": there is no " + kind + " '" + text + "' (orvane ports lists them)");
    return static_cast<int>(number);
}
}  // namespace

std::string describePorts(const MidiInputPorts& inputs, const MidiOutputPorts& outputs)
{
    return describe("Inputs", inputs) + describe("Outputs", outputs);
}

int findInput(const MidiInputPorts& inputs, const std::string& text, const std::string& option)
{
    return findPort(inputs, text, option, "input");
}

int findOutput(const MidiOutputPorts& outputs, const std::string& text, const std::string& option)
{
    return findPort(outputs, text, option, "output");
}
}  // namespace Host
