#pragma once

#include <string>
#include <vector>

#include "backend/messages/MessageManager.h"
#include "backend/model/LayerList.h"
#include "platform/Export.h"

namespace Backend::Layers
{
class LayerManager;

/// What the window asks of the layers. Any thread but the time slice.
class ORV_API LayerMessageManager final : public MessageManager
{
public:
    LayerMessageManager(MessageManagerMaster& master, LayerManager& layerManager);

    bool wantMessage(unsigned int message) const override;
    void handleMessage(Message& message) override;

    void postMergeLayers(const std::vector<Layer>& changed, bool redraw);
    void postSetLayers(const LayerList& layers, bool redraw);
    void postLoadPreset(const std::string& name);
    void postRenamePreset(const std::string& name, const std::string& newName);
    void postDeletePreset(const std::string& name);
    void postSavePreset(const std::string& name, const std::vector<LayerId>& ids);
    void postSetSelected(const std::vector<LayerId>& ids);

private:
    LayerManager& manager;
};
}  // namespace Backend::Layers
