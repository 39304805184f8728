#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace Gui::Setup
{
/// A port as the user has set it in the dialog.
struct PortChoice {
    std::string name{};
    bool enabled = false;
};
using PortChoices = std::vector<PortChoice>;

/// A loopback port connects an output to the input of the same name: with both enabled, every event would be received
/// again. Such ports have one of these words in their names.
inline constexpr std::string_view LOOPBACK_NAMES[] = {"MIDI Yoke", "Internal MIDI"};

/// Whether an enabled loopback port of `choices` has its other end enabled among `others`.
inline bool breaksLoopbackRule(const PortChoices& choices, const PortChoices& others)
{
    return std::ranges::any_of(choices, [&others](const PortChoice& port) {
        const bool isLoopback = std::ranges::any_of(
            LOOPBACK_NAMES, [&port](std::string_view words) { return port.name.find(words) != std::string::npos; });
        const auto isOtherEnd = [&port](const PortChoice& other) { return other.enabled && other.name == port.name; };
        return port.enabled && isLoopback && std::ranges::any_of(others, isOtherEnd);
    });
}
}  // namespace Gui::Setup
