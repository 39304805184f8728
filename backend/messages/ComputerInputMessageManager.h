#pragma once

#include <string>
#include <vector>

#include "backend/messages/PresetMessages.h"
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
/// LOAD_PRESET, RENAME_PRESET, DELETE_PRESET and SAVE_PRESET.
using Presets = PresetMessages<33471, std::vector<Key>>;
inline constexpr TypedMessage<Key, bool> KEY_DOWN{33475, "KeyDown"};
inline constexpr TypedMessage<Key> KEY_UP{33476, "KeyUp"};
}  // namespace ComputerInputMessage

/// The commands of the section of the computer's keys, from the window and for pressed keys. Any thread but the time
/// slice. Messages contain copies of configurations.
class ORV_API ComputerInputMessageManager final : public PresetMessageManager<ComputerInputMessage::Presets>
{
public:
    ComputerInputMessageManager(MessageManagerMaster& managerMaster, Handler handler)
        : PresetMessageManager(managerMaster, ComputerInputMessage::RANGE, std::move(handler))
    {
    }

    void postSetKeyConfigurations(const std::vector<KeyConfiguration>& configurations, bool notifyGui)
    {
        master.post(ComputerInputMessage::SET_KEY_CONFIGURATIONS(configurations, notifyGui));
    }

    void postSetUseKeyUpMod(bool on) { master.post(ComputerInputMessage::SET_USE_KEY_UP_MOD(on)); }

    /// The message contains the key in its packed form.
    void postKeyDown(const Key& key, bool isRepeat) { master.post(ComputerInputMessage::KEY_DOWN(key, isRepeat)); }

    void postKeyUp(const Key& key) { master.post(ComputerInputMessage::KEY_UP(key)); }
};
}  // namespace Backend::ComputerInput
