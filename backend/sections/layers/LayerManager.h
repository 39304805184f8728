#pragma once

#include <iosfwd>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "backend/files/PresetManager.h"
#include "backend/messages/LayerMessageManager.h"
#include "backend/model/LayerList.h"
#include "backend/values/NoteToggle.h"
#include "backend/values/OnOffToggle.h"
#include "backend/values/RelativeFixedValue.h"
#include "backend/values/SelectType.h"
#include "platform/Export.h"

namespace Backend
{
class OrvIF;
}

namespace Backend::Layers
{
/// The authority over the layers. Every change is published: the engine gets a copy with a reset in front of it, so
/// that nothing hangs, and the window is told. The backend thread's own.
class ORV_API LayerManager
{
public:
    LayerManager(OrvIF& backend, MessageManagerMaster& master);

    const LayerList& getLayers() const { return layers; }
    LayerMessageManager& getMessageManager() { return messageManager; }
    PresetManager& getPresets() { return presets; }

    void readXml(const XmlElement& section);
    void writeXml(std::ostream& out, int indent, std::span<const LayerId> ids) const;

    /// A preset that is not there changes nothing.
    void loadPreset(const std::string& name);
    /// The layers of `ids`, to be merged when loaded, or without ids all of them.
    void savePreset(const std::string& name, const std::vector<LayerId>& ids);
    void renamePreset(const std::string& name, const std::string& newName);
    void deletePreset(const std::string& name);

    /// No layers.
    void setDefaults();

    // From the window: with `redraw` it gets the list back.

    /// Each takes the place of the layer of its id.
    void mergeLayers(const std::vector<Layer>& changed, bool redraw);
    void setLayers(const LayerList& newLayers, bool redraw);
    void setSelected(const std::vector<LayerId>& ids);

    // On the layers that `select` names: all, the selected ones, or the one of that id; other kinds name none. The list
    // is published once, whatever it named.

    /// The layer's transposition keeps its kind, relative or fixed. No limit applies.
    void changeTranspose(const SelectType& select, const RelativeFixedValue& value);
    void changeVelocity(const SelectType& select, const RelativeFixedValue& value);
    void changeMute(const SelectType& select, const OnOffToggle& value);
    void changeMono(const SelectType& select, const OnOffToggle& value);
    void changeSolo(const SelectType& select, const OnOffToggle& value);
    void changeNoteToggle(const SelectType& select, const NoteToggle& value);

    /// Moves the selection up or down from the first selected layer, or to a layer. A target outside the list changes
    /// nothing.
    void dataSelect(const SelectType& select);
    /// Tells the window to open the settings of a layer; changes nothing here.
    void editSelect(const SelectType& select) const;

private:
    template <class Change>
    void changeLayers(const SelectType& select, unsigned int message, Change&& change);
    void publish();
    void publishToEngine();
    void tellGui() const;

    OrvIF& orv;
    LayerList layers;
    PresetManager presets;
    LayerMessageManager messageManager;
};
}  // namespace Backend::Layers
