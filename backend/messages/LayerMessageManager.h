#pragma once

#include <string>
#include <vector>

#include "backend/messages/MessageManagerMaster.h"
#include "backend/messages/TypedMessage.h"
#include "backend/model/LayerList.h"
#include "platform/Export.h"

namespace Backend::Layers
{
namespace LayerMessage
{
inline constexpr MessageRange RANGE{34718, 34726};

inline constexpr TypedMessage<std::vector<Layer>, bool> MERGE_LAYERS{34719, "MergeLayers"};
inline constexpr TypedMessage<LayerList, bool> SET_LAYERS{34720, "SetLayers"};
inline constexpr TypedMessage<std::string> LOAD_PRESET{34721, "LoadPreset"};
inline constexpr TypedMessage<std::string, std::string> RENAME_PRESET{34722, "RenamePreset"};
inline constexpr TypedMessage<std::string> DELETE_PRESET{34723, "DeletePreset"};
inline constexpr TypedMessage<std::string, std::vector<LayerId>> SAVE_PRESET{34724, "SavePreset"};
inline constexpr TypedMessage<std::vector<LayerId>> SET_SELECTED{34725, "SetSelected"};
}  // namespace LayerMessage

/// What the window asks of the layers. Any thread but the time slice.
class ORV_API LayerMessageManager final : public MessageManager
{
public:
    LayerMessageManager(MessageManagerMaster& managerMaster, Handler handler)
        : MessageManager(managerMaster, LayerMessage::RANGE, std::move(handler))
    {
    }

    void postMergeLayers(const std::vector<Layer>& changed, bool redraw)
    {
        master.post(LayerMessage::MERGE_LAYERS(changed, redraw));
    }

    void postSetLayers(const LayerList& layers, bool redraw) { master.post(LayerMessage::SET_LAYERS(layers, redraw)); }

    void postLoadPreset(const std::string& name) { master.post(LayerMessage::LOAD_PRESET(name)); }

    void postRenamePreset(const std::string& name, const std::string& newName)
    {
        master.post(LayerMessage::RENAME_PRESET(name, newName));
    }

    void postDeletePreset(const std::string& name) { master.post(LayerMessage::DELETE_PRESET(name)); }

    void postSavePreset(const std::string& name, const std::vector<LayerId>& ids)
    {
        master.post(LayerMessage::SAVE_PRESET(name, ids));
    }

    void postSetSelected(const std::vector<LayerId>& ids) { master.post(LayerMessage::SET_SELECTED(ids)); }
};
}  // namespace Backend::Layers
