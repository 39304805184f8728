#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "backend/messages/PresetMessages.h"
#include "backend/model/Control.h"
#include "backend/values/Cell.h"
#include "platform/Export.h"

namespace Backend::Controls
{
namespace ControlMessage
{
inline constexpr MessageRange RANGE{33968, 33978};

inline constexpr TypedMessage<std::vector<Control>, bool, bool> SET_CONTROLS{33969, "SetControls"};
/// LOAD_PRESET, RENAME_PRESET, DELETE_PRESET and SAVE_PRESET.
using Presets = PresetMessages<33970, std::vector<Cell>>;
inline constexpr TypedMessage<Cell, std::int32_t> SET_VALUE{33975, "SetValue"};
inline constexpr TypedMessage<Cell, bool> SET_SELECTED{33976, "SetSelected"};
}  // namespace ControlMessage

/// The commands of the controls section, from the window. Any thread but the time slice, which uses `ControlUpdates`.
class ORV_API ControlMessageManager final : public PresetMessageManager<ControlMessage::Presets>
{
public:
    ControlMessageManager(MessageManagerMaster& managerMaster, Handler handler)
        : PresetMessageManager(managerMaster, ControlMessage::RANGE, std::move(handler))
    {
    }

    void postSetControls(const std::vector<Control>& changed, bool notifyGui, bool deleteMissing)
    {
        master.post(ControlMessage::SET_CONTROLS(changed, notifyGui, deleteMissing));
    }

    /// The user moves a control; ignored if there is none in that cell.
    void postSetValue(const Cell& cell, std::int32_t value) { master.post(ControlMessage::SET_VALUE(cell, value)); }

    void postSetSelected(const Cell& cell, bool selected) { master.post(ControlMessage::SET_SELECTED(cell, selected)); }
};
}  // namespace Backend::Controls
