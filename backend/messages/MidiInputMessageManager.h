#pragma once

#include <string>
#include <vector>

#include "backend/messages/PresetMessages.h"
#include "backend/model/MidiEventConfiguration.h"
#include "platform/Export.h"

namespace Backend::MidiInput
{
namespace MidiInputMessage
{
inline constexpr MessageRange RANGE{33718, 33724};

inline constexpr TypedMessage<std::vector<MidiEventConfiguration>, bool> SET_EVENT_CONFIGURATIONS{
    33719, "SetEventConfigurations"};
/// LOAD_PRESET, RENAME_PRESET, DELETE_PRESET and SAVE_PRESET.
using Presets = PresetMessages<33720, std::vector<MidiEvent>>;
}  // namespace MidiInputMessage

/// The commands of the MIDI input section. Any thread but the time slice.
class ORV_API MidiInputMessageManager final : public PresetMessageManager<MidiInputMessage::Presets>
{
public:
    MidiInputMessageManager(MessageManagerMaster& managerMaster, Handler handler)
        : PresetMessageManager(managerMaster, MidiInputMessage::RANGE, std::move(handler))
    {
    }

    void postSetEventConfigurations(const std::vector<MidiEventConfiguration>& configurations, bool notifyGui)
    {
        master.post(MidiInputMessage::SET_EVENT_CONFIGURATIONS(configurations, notifyGui));
    }
};
}  // namespace Backend::MidiInput
