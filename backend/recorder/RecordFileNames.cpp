#include "backend/recorder/RecordFileNames.h"

#include <algorithm>

#include "platform/Utf8.h"

namespace Backend::RetroRecord
{
namespace
{
constexpr std::size_t LONGEST_NAME = 120;

bool isForbidden(char character)
{
    const auto code = static_cast<unsigned char>(character);
    return character == '/' || character == ':' || code < 32 || code == 127;
}

/// Cuts the name between two characters.
std::string cut(const std::string& name)
{
    if (name.size() <= LONGEST_NAME) return name;
    return isUtf8(name) ? name.substr(0, countUtf8Bytes(name.substr(0, LONGEST_NAME))) : name.substr(0, LONGEST_NAME);
}
}  // namespace

std::vector<std::string> fileNamesOf(const MidiEngine::MidiOutputPorts& ports)
{
    std::vector<std::string> names;
    for (const auto& port : ports) {
        std::string name = cut(port.name);
        std::ranges::replace_if(name, isForbidden, '_');
        std::string unique = name;
        for (int twin = 2; std::ranges::find(names, unique) != names.end(); ++twin)
            unique = name + "_" + std::to_string(twin);
        names.push_back(unique);
    }
    return names;
}
}  // namespace Backend::RetroRecord
