#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "backend/messages/MessageManagerMaster.h"
#include "backend/messages/TypedMessage.h"
#include "backend/model/Control.h"
#include "backend/values/Cell.h"
#include "platform/Export.h"

namespace Backend::Controls
{
namespace ControlMessage
{
inline constexpr MessageRange RANGE{33968, 33978};

inline constexpr TypedMessage<std::vector<Control>, bool, bool> SET_CONTROLS{33969, "SetControls"};
inline constexpr TypedMessage<std::string> LOAD_PRESET{33970, "LoadPreset"};
inline constexpr TypedMessage<std::string, std::string> RENAME_PRESET{33971, "RenamePreset"};
inline constexpr TypedMessage<std::string> DELETE_PRESET{33972, "DeletePreset"};
inline constexpr TypedMessage<std::string, std::vector<Cell>> SAVE_PRESET{33973, "SavePreset"};
inline constexpr TypedMessage<Cell, std::int32_t> SET_VALUE{33975, "SetValue"};
inline constexpr TypedMessage<Cell, bool> SET_SELECTED{33976, "SetSelected"};
}  // namespace ControlMessage

/// What the window and the time slices ask of the controls. Any thread; time slices have `getUpdates`.
class ORV_API ControlMessageManager final : public MessageManager
{
public:
    ControlMessageManager(MessageManagerMaster& managerMaster, Handler handler)
        : MessageManager(managerMaster, ControlMessage::RANGE, std::move(handler))
    {
    }

    void postSetControls(const std::vector<Control>& changed, bool notifyGui, bool deleteMissing)
    {
        master.post(ControlMessage::SET_CONTROLS(changed, notifyGui, deleteMissing));
    }

    void postLoadPreset(const std::string& name) { master.post(ControlMessage::LOAD_PRESET(name)); }

    void postRenamePreset(const std::string& name, const std::string& newName)
    {
        master.post(ControlMessage::RENAME_PRESET(name, newName));
    }

    void postDeletePreset(const std::string& name) { master.post(ControlMessage::DELETE_PRESET(name)); }

    void postSavePreset(const std::string& name, const std::vector<Cell>& cells)
    {
        master.post(ControlMessage::SAVE_PRESET(name, cells));
    }

    /// The user moves a control; without one at that cell nothing happens.
    void postSetValue(const Cell& cell, std::int32_t value) { master.post(ControlMessage::SET_VALUE(cell, value)); }

    void postSetSelected(const Cell& cell, bool selected) { master.post(ControlMessage::SET_SELECTED(cell, selected)); }
};
}  // namespace Backend::Controls
