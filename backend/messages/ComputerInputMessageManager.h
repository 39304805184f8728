#pragma once

#include <string>
#include <vector>

#include "backend/messages/MessageManagerMaster.h"
#include "backend/messages/TypedMessage.h"
#include "backend/model/KeyConfiguration.h"
#include "platform/Export.h"

namespace Backend::ComputerInput
{
namespace ComputerInputMessage
{
inline constexpr MessageRange RANGE{33468, 33477};

inline constexpr TypedMessage<std::vector<KeyConfiguration>, bool> SET_KEY_CONFIGURATIONS{33469,
                                                                                          "SetKeyConfigurations"};
inline constexpr TypedMessage<bool> SET_USE_KEY_UP_MOD{33470, "SetUseKeyUpMod"};
inline constexpr TypedMessage<std::string> LOAD_PRESET{33471, "LoadPreset"};
inline constexpr TypedMessage<std::string, std::string> RENAME_PRESET{33472, "RenamePreset"};
inline constexpr TypedMessage<std::string> DELETE_PRESET{33473, "DeletePreset"};
inline constexpr TypedMessage<std::string, std::vector<Key>> SAVE_PRESET{33474, "SavePreset"};
inline constexpr TypedMessage<Key, bool> KEY_DOWN{33475, "KeyDown"};
inline constexpr TypedMessage<Key> KEY_UP{33476, "KeyUp"};
}  // namespace ComputerInputMessage

/// What the window asks of the keys, and the keys themselves. Any thread but the time slice. Configurations travel as
/// copies.
class ORV_API ComputerInputMessageManager final : public MessageManager
{
public:
    ComputerInputMessageManager(MessageManagerMaster& managerMaster, Handler handler)
        : MessageManager(managerMaster, ComputerInputMessage::RANGE, std::move(handler))
    {
    }

    void postSetKeyConfigurations(const std::vector<KeyConfiguration>& configurations, bool notifyGui)
    {
        master.post(ComputerInputMessage::SET_KEY_CONFIGURATIONS(configurations, notifyGui));
    }

    void postSetUseKeyUpMod(bool on) { master.post(ComputerInputMessage::SET_USE_KEY_UP_MOD(on)); }

    void postLoadPreset(const std::string& name) { master.post(ComputerInputMessage::LOAD_PRESET(name)); }

    void postRenamePreset(const std::string& name, const std::string& newName)
    {
        master.post(ComputerInputMessage::RENAME_PRESET(name, newName));
    }

    void postDeletePreset(const std::string& name) { master.post(ComputerInputMessage::DELETE_PRESET(name)); }

    void postSavePreset(const std::string& name, const std::vector<Key>& keysToSave)
    {
        master.post(ComputerInputMessage::SAVE_PRESET(name, keysToSave));
    }

    /// A key goes in its packed form, in the message itself.
    void postKeyDown(const Key& key, bool isRepeat) { master.post(ComputerInputMessage::KEY_DOWN(key, isRepeat)); }

    void postKeyUp(const Key& key) { master.post(ComputerInputMessage::KEY_UP(key)); }
};
}  // namespace Backend::ComputerInput
