#pragma once

#include <iosfwd>
#include <span>
#include <string_view>
#include <vector>

#include "backend/messages/LayerMessageManager.h"
#include "backend/model/LayerList.h"
#include "backend/sections/Section.h"
#include "backend/values/NoteToggle.h"
#include "backend/values/OnOffToggle.h"
#include "backend/values/RelativeFixedValue.h"
#include "backend/values/SelectType.h"
#include "platform/Export.h"

namespace Backend::Layers
{
/// The layers of the program. Every change is published: the engine gets a reset, so that no note hangs, and then a
/// copy; the window gets what changed. The backend thread's.
class ORV_API LayerManager final : public Section<LayerList, LayerId>
{
public:
    LayerManager(OrvIF& backend, MessageManagerMaster& master);

    const LayerList& getLayers() const { return getContent(); }
    LayerMessageManager& getMessageManager() override { return messageManager; }
    void notifyGui() const override;

    void writeXml(std::ostream& out, int indent, std::span<const LayerId> ids) const override;

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
    /// Asks the window to open the settings of a layer; changes nothing here.
    void editSelect(const SelectType& select) const;

private:
    template <class Message, class Change>
    void changeLayers(const SelectType& select, const Message& message, Change&& change);
    void readContent(const XmlElement& section, LayerList& into) override;
    void updatePlaying() override;

    LayerMessageManager messageManager;
};
}  // namespace Backend::Layers
