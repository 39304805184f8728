#include "gui/screens/cc/SentValues.h"

#include <algorithm>

namespace Gui::Cc
{
using Backend::MidiEngine::MessageType;
using Backend::MidiEngine::OrvMidiMessage;

namespace
{
/// After `Reset All Controllers`.
constexpr std::pair<std::size_t, std::int8_t> RESET_VALUES[] = {{1, 0},  {11, 127}, {64, 0},   {65, 0},    {66, 0},
                                                                {67, 0}, {98, 127}, {99, 127}, {100, 127}, {101, 127}};

/// What an output that takes no events never reports must not pile up.
constexpr std::size_t MOST_UNREPORTED = 1024;

bool haveSameTarget(const OrvMidiMessage& left, const OrvMidiMessage& right)
{
    return left.getOutput() == right.getOutput() && left.getStatusWithChannel() == right.getStatusWithChannel() &&
           (left.getStatus() == MessageType::programChange || left.getD1() == right.getD1());
}

std::optional<int> known(std::int8_t value) { return value < 0 ? std::nullopt : std::optional<int>(value); }
}  // namespace

void SentValues::takeOwn(const OrvMidiMessage& event)
{
    if (!set(event)) return;
    if (unreported.size() == MOST_UNREPORTED) unreported.pop_front();
    unreported.push_back(event);
}

bool SentValues::take(const OrvMidiMessage& event) { return !isOld(event) && set(event); }

/// Whether it is an own event after which another one set the same value.
bool SentValues::isOld(const OrvMidiMessage& event)
{
    const auto hasSameTarget = [&event](const OrvMidiMessage& own) { return haveSameTarget(own, event); };
    const auto reported = std::ranges::find_if(unreported, [&](const OrvMidiMessage& own) {
        return hasSameTarget(own) && own.getD1() == event.getD1() && own.getD2() == event.getD2();
    });
    if (reported == unreported.end()) return false;
    const bool hasLater = std::any_of(reported + 1, unreported.end(), hasSameTarget);
    unreported.erase(std::remove_if(unreported.begin(), reported + 1, hasSameTarget), reported + 1);
    return hasLater;
}

bool SentValues::set(const OrvMidiMessage& event)
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
