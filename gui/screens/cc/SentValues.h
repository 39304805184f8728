#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <utility>

#include "backend/values/OrvMidiMessage.h"

namespace Gui::Cc
{
/// What outputs were sent last: the controllers and the program of each channel. What was never sent is unknown.
class SentValues
{
public:
    static constexpr int BANK_MSB = 0;  ///< controllers, as the MIDI standard has them
    static constexpr int BANK_LSB = 32;
    static constexpr int RESET_ALL = 121;

    struct Place {
        int output = 0;   ///< from 0
        int channel = 0;  ///< 0 to 15

        auto operator<=>(const Place&) const = default;
    };

    /// Takes an event that this section hands to the engine. It counts at once: until the last one is reported, what
    /// the report of an earlier one says of the same value is old.
    void takeOwn(const Backend::MidiEngine::OrvMidiMessage& event);

    /// Takes an event that is reported as sent; false if it changes nothing here. `Reset All Controllers` sets those
    /// that it resets, and leaves volume, pan, effects, bank and program, as the MIDI standard recommends (RP-015).
    bool take(const Backend::MidiEngine::OrvMidiMessage& event);

    /// 0 to 127.
    std::optional<int> getController(const Place& place, int controller) const;
    std::optional<int> getProgram(const Place& place) const;

private:
    static constexpr std::int8_t UNKNOWN = -1;
    struct Channel {
        Channel() { controllers.fill(UNKNOWN); }

        std::array<std::int8_t, 128> controllers{};
        std::int8_t program = UNKNOWN;
    };

    bool set(const Backend::MidiEngine::OrvMidiMessage& event);
    bool isOld(const Backend::MidiEngine::OrvMidiMessage& event);

    std::map<Place, Channel> channels;
    std::deque<Backend::MidiEngine::OrvMidiMessage> unreported;  // own events
};
}  // namespace Gui::Cc
