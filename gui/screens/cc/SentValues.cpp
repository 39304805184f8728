#include "gui/screens/cc/SentValues.h"

namespace Gui::Cc
{
using Backend::MidiEngine::MessageType;

namespace
{
/// After `Reset All Controllers`.
constexpr std::pair<std::size_t, std::int8_t> RESET_VALUES[] = {{1, 0},  {11, 127}, {64, 0},   {65, 0},    {66, 0},
                                                                {67, 0}, {98, 127}, {99, 127}, {100, 127}, {101, 127}};

std::optional<int> known(std::int8_t value) { return value < 0 ? std::nullopt : std::optional<int>(value); }
}  // namespace

bool SentValues::take(const Backend::MidiEngine::OrvMidiMessage& event)
{
    const MessageType status = event.getStatus();
    if (status != MessageType::controllerChange && status != MessageType::programChange) return false;
    Channel& channel = channels[{event.getOutput(), event.getChannel()}];
    const auto first = static_cast<std::size_t>(event.getD1() & 0x7F);
    if (status == MessageType::programChange) {
        channel.program = static_cast<std::int8_t>(first);
        return true;
    }
    channel.controllers[first] = static_cast<std::int8_t>(event.getD2() & 0x7F);
    if (first == RESET_ALL)
        for (const auto& [controller, value] : RESET_VALUES) channel.controllers[controller] = value;
    return true;
}

std::optional<int> SentValues::getController(const Place& place, int controller) const
{
    const auto channel = channels.find(place);
    return channel == channels.end() ? std::nullopt
                                     : known(channel->second.controllers[static_cast<std::size_t>(controller)]);
}

std::optional<int> SentValues::getProgram(const Place& place) const
{
    const auto channel = channels.find(place);
    return channel == channels.end() ? std::nullopt : known(channel->second.program);
}
}  // namespace Gui::Cc
