#pragma once

#include <string>
#include <vector>

#include "backend/messages/MessageManagerMaster.h"
#include "backend/messages/TypedMessage.h"
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
inline constexpr TypedMessage<std::string> LOAD_PRESET{35471, "LoadPreset"};
inline constexpr TypedMessage<std::string, std::string> RENAME_PRESET{35472, "RenamePreset"};
inline constexpr TypedMessage<std::string> DELETE_PRESET{35473, "DeletePreset"};
inline constexpr TypedMessage<std::string, std::vector<OscId>> SAVE_PRESET{35474, "SavePreset"};
inline constexpr TypedMessage<std::vector<OscId>> SET_SELECTED{35475, "SetSelected"};
inline constexpr TypedMessage<SelectType, OnOffToggle> CHANGE_PLAYING{35476, "ChangePlaying"};
inline constexpr TypedMessage<SelectType, RelativeFixedValue> CHANGE_SPEED{35477, "ChangeSpeed"};
inline constexpr TypedMessage<SelectType, std::int32_t> SET_SPEED_FROM_MIDI{35478, "SetSpeedFromMidi"};
inline constexpr TypedMessage<OscId, TimeIntervalType> SET_SPEED_MODE{35479, "SetSpeedMode"};
}  // namespace OscMessage

/// What the window asks of the oscillators, see `OscManager`. Any thread but the time slice.
class ORV_API OscMessageManager final : public MessageManager
{
public:
    OscMessageManager(MessageManagerMaster& managerMaster, Handler handler)
        : MessageManager(managerMaster, OscMessage::RANGE, std::move(handler))
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

    void postLoadPreset(const std::string& name) { master.post(OscMessage::LOAD_PRESET(name)); }

    void postRenamePreset(const std::string& name, const std::string& newName)
    {
        master.post(OscMessage::RENAME_PRESET(name, newName));
    }

    void postDeletePreset(const std::string& name) { master.post(OscMessage::DELETE_PRESET(name)); }

    void postSavePreset(const std::string& name, const std::vector<OscId>& ids)
    {
        master.post(OscMessage::SAVE_PRESET(name, ids));
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
