#include "platform/MidiDevices.h"

#include <cstdint>

#include "platform/WholeFile.h"
#include "platform/linux/SequencerClients.h"

std::vector<std::string> readablePorts(std::string_view clients)
{
    std::vector<std::string> names;
    while (!clients.empty()) {
        const auto end = clients.find('\n');
        const std::string_view line = clients.substr(0, end);
        clients = end == std::string_view::npos ? std::string_view{} : clients.substr(end + 1);
        // A name may contain quotation marks. A capital R means readable by all programs.
        const auto open = line.find('"');
        const auto close = line.rfind("\" (R");
        if (line.starts_with("  Port") && open < close && close != std::string_view::npos)
            names.emplace_back(line.substr(open + 1, close - open - 1));
    }
    return names;
}

std::vector<std::string> getMidiInputDevices()
{
    std::vector<std::uint8_t> bytes;
    if (WholeFile::read("/proc/asound/seq/clients", 1u << 20, bytes)) return {};
    return readablePorts({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}
