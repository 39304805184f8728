#pragma once

#include <string>
#include <vector>

#include "backend/messages/PresetMessages.h"
#include "backend/model/OscList.h"
#include "backend/values/OnOffToggle.h"
#include "backend/values/RelativeFixedValue.h"
#include "backend/values/SelectType.h"
#include "backend/values/TimeIntervalType.h"
#include "platform/Export.h"

namespace Backend::Oscillators
{
namespace OscMessage
{
inline constexpr MessageRange RANGE{35468, 35480};

inline constexpr TypedMessage<std::vector<Oscillator>, bool> MERGE_OSCILLATORS{35469, "MergeOscillators"};
inline constexpr TypedMessage<OscList, bool> SET_OSCILLATORS{35470, "SetOscillators"};
/// LOAD_PRESET, RENAME_PRESET, DELETE_PRESET and SAVE_PRESET.
using Presets = PresetMessages<35471, std::vector<OscId>>;
inline constexpr TypedMessage<std::vector<OscId>> SET_SELECTED{35475, "SetSelected"};
inline constexpr TypedMessage<SelectType, OnOffToggle> CHANGE_PLAYING{35476, "ChangePlaying"};
inline constexpr TypedMessage<SelectType, RelativeFixedValue> CHANGE_SPEED{35477, "ChangeSpeed"};
inline constexpr TypedMessage<SelectType, std::int32_t> SET_SPEED_FROM_MIDI{35478, "SetSpeedFromMidi"};
inline constexpr TypedMessage<OscId, TimeIntervalType> SET_SPEED_MODE{35479, "SetSpeedMode"};
}  // namespace OscMessage

/// The commands of the oscillators section, see `OscManager`. Any thread but the time slice.
class ORV_API OscMessageManager final : public PresetMessageManager<OscMessage::Presets>
{
public:
    OscMessageManager(MessageManagerMaster& managerMaster, Handler handler)
        : PresetMessageManager(managerMaster, OscMessage::RANGE, std::move(handler))
    {
    }

    void postMergeOscillators(const std::vector<Oscillator>& changed, bool redraw)
    {
        master.post(OscMessage::MERGE_OSCILLATORS(changed, redraw));
    }

    void postSetOscillators(const OscList& oscillators, bool redraw)
    {
        master.post(OscMessage::SET_OSCILLATORS(oscillators, redraw));
    }

    void postSetSelected(const std::vector<OscId>& ids) { master.post(OscMessage::SET_SELECTED(ids)); }

    void postChangePlaying(const SelectType& select, const OnOffToggle& value)
    {
        master.post(OscMessage::CHANGE_PLAYING(select, value));
    }

    void postChangeSpeed(OscId id, const RelativeFixedValue& value)
    {
        master.post(OscMessage::CHANGE_SPEED({SelectType::Kind::specific, id}, value));
    }

    void postSetSpeedFromMidi(const SelectType& select, std::int32_t value)
    {
        master.post(OscMessage::SET_SPEED_FROM_MIDI(select, value));
    }

    void postSetSpeedMode(OscId id, TimeIntervalType mode) { master.post(OscMessage::SET_SPEED_MODE(id, mode)); }
};
}  // namespace Backend::Oscillators
