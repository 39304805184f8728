#include "host/ports/PortMemory.h"

#include <algorithm>
#include <cstdint>
#include <system_error>
#include <utility>

#include "api/OrvUtils.h"
#include "platform/Path.h"
#include "platform/Utf8.h"
#include "platform/WholeFile.h"

namespace Host
{
namespace
{
constexpr std::size_t LARGEST_LIST = 1u << 20;

std::vector<std::string> splitNames(std::string_view text)
{
    std::vector<std::string> names;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        std::string_view name = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (name.ends_with('\r')) name.remove_suffix(1);
        if (!name.empty() && isUtf8(name) && std::ranges::find(names, name) == names.end()) names.emplace_back(name);
    }
    return names;
}

template <class PortType>
std::vector<std::string> namesOf(const PortTable<PortType>& ports)
{
    std::vector<std::string> names;
    for (const auto& port : ports) names.push_back(port->name);
    return names;
}

void markAbsent(Port* port)
{
    if (port != nullptr) port->found = false;
}
}  // namespace

PortMemory::PortMemory(const std::string& folder, Report reportLine) : report(std::move(reportLine))
{
    inputs.path = Backend::OrvUtils::pathIn(folder, "Midi Inputs.txt");
    outputs.path = Backend::OrvUtils::pathIn(folder, "Midi Outputs.txt");
}

void PortMemory::restore(Ports& ports, std::string_view firstOutput)
{
    for (const std::string& name : read(inputs)) markAbsent(ports.addInput(name));
    auto names = read(outputs);
    if (!firstOutput.empty()) {
        std::erase(names, firstOutput);
        names.insert(names.begin(), std::string(firstOutput));
    }
    for (const std::string& name : names) markAbsent(ports.addOutput(name));
}

void PortMemory::save(const Ports& ports)
{
    if (ports.inputs().size() > inputs.stored) write(inputs, namesOf(ports.inputs()));
    if (ports.outputs().size() > outputs.stored) write(outputs, namesOf(ports.outputs()));
}

std::vector<std::string> PortMemory::read(List& list) const
{
    std::vector<std::uint8_t> bytes;
    const auto error = WholeFile::read(pathOf(list.path), LARGEST_LIST, bytes);
    if (error && error != std::errc::no_such_file_or_directory && error != std::errc::not_a_directory) {
        list.usable = false;
        report(list.path + ": " + error.message() + "; ports may have other numbers than before");
    }
    auto names = splitNames({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    list.stored = names.size();
    return names;
}

void PortMemory::write(List& list, const std::vector<std::string>& names) const
{
    if (!list.usable || list.path.empty()) return;
    std::string text;
    for (const std::string& name : names) text += name + "\n";
    list.stored = names.size();
    if (const auto error = WholeFile::replace(pathOf(list.path), text)) {
        list.usable = false;
        report(list.path + ": " + error.message() + "; ports may have other numbers in the next run");
    }
}
}  // namespace Host
