#pragma once

#include <string>
#include <vector>

#include "backend/messages/MessageManagerMaster.h"
#include "backend/messages/TypedMessage.h"
#include "backend/model/MidiEventConfiguration.h"
#include "platform/Export.h"

namespace Backend::MidiInput
{
namespace MidiInputMessage
{
inline constexpr MessageRange RANGE{33718, 33724};

inline constexpr TypedMessage<std::vector<MidiEventConfiguration>, bool> SET_EVENT_CONFIGURATIONS{
    33719, "SetEventConfigurations"};
inline constexpr TypedMessage<std::string> LOAD_PRESET{33720, "LoadPreset"};
inline constexpr TypedMessage<std::string, std::string> RENAME_PRESET{33721, "RenamePreset"};
inline constexpr TypedMessage<std::string> DELETE_PRESET{33722, "DeletePreset"};
inline constexpr TypedMessage<std::string, std::vector<MidiEvent>> SAVE_PRESET{33723, "SavePreset"};
}  // namespace MidiInputMessage

/// What the window asks of the translations of incoming events. Any thread but the time slice.
class ORV_API MidiInputMessageManager final : public MessageManager
{
public:
    MidiInputMessageManager(MessageManagerMaster& managerMaster, Handler handler)
        : MessageManager(managerMaster, MidiInputMessage::RANGE, std::move(handler))
    {
    }

    void postSetEventConfigurations(const std::vector<MidiEventConfiguration>& configurations, bool notifyGui)
    {
        master.post(MidiInputMessage::SET_EVENT_CONFIGURATIONS(configurations, notifyGui));
    }

    void postLoadPreset(const std::string& name) { master.post(MidiInputMessage::LOAD_PRESET(name)); }

    void postRenamePreset(const std::string& name, const std::string& newName)
    {
        master.post(MidiInputMessage::RENAME_PRESET(name, newName));
    }

    void postDeletePreset(const std::string& name) { master.post(MidiInputMessage::DELETE_PRESET(name)); }

    void postSavePreset(const std::string& name, const std::vector<MidiEvent>& eventsToSave)
    {
        master.post(MidiInputMessage::SAVE_PRESET(name, eventsToSave));
    }
};
}  // namespace Backend::MidiInput
