#pragma once

#include <string>
#include <vector>

#include "backend/messages/PresetMessages.h"
#include "backend/model/LayerList.h"
#include "platform/Export.h"

namespace Backend::Layers
{
namespace LayerMessage
{
inline constexpr MessageRange RANGE{34718, 34726};

inline constexpr TypedMessage<std::vector<Layer>, bool> MERGE_LAYERS{34719, "MergeLayers"};
inline constexpr TypedMessage<LayerList, bool> SET_LAYERS{34720, "SetLayers"};
/// LOAD_PRESET, RENAME_PRESET, DELETE_PRESET and SAVE_PRESET.
using Presets = PresetMessages<34721, std::vector<LayerId>>;
inline constexpr TypedMessage<std::vector<LayerId>> SET_SELECTED{34725, "SetSelected"};
}  // namespace LayerMessage

/// The commands of the layers section. Any thread but the time slice.
class ORV_API LayerMessageManager final : public PresetMessageManager<LayerMessage::Presets>
{
public:
    LayerMessageManager(MessageManagerMaster& managerMaster, Handler handler)
        : PresetMessageManager(managerMaster, LayerMessage::RANGE, std::move(handler))
    {
    }

    void postMergeLayers(const std::vector<Layer>& changed, bool redraw)
    {
        master.post(LayerMessage::MERGE_LAYERS(changed, redraw));
    }

    void postSetLayers(const LayerList& layers, bool redraw) { master.post(LayerMessage::SET_LAYERS(layers, redraw)); }

    void postSetSelected(const std::vector<LayerId>& ids) { master.post(LayerMessage::SET_SELECTED(ids)); }
};
}  // namespace Backend::Layers
