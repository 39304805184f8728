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
/// The layers of the program. Every change is published: the engine is reset, so that no note hangs, and gets a copy;
/// the window gets what has changed. The backend thread's.
class ORV_API LayerManager final : public ListSection<LayerList, Layer, LayerId>
{
public:
    LayerManager(OrvIF& backend, MessageManagerMaster& master);

    const LayerList& getLayers() const { return getContent(); }
    LayerMessageManager& getMessageManager() override { return messageManager; }
    void notifyGui() const override;

    // Operations of the window: with `redraw` the list is sent back to it.

    /// Each replaces the layer of its id.
    void mergeLayers(const std::vector<Layer>& changed, bool redraw);
    void setLayers(const LayerList& newLayers, bool redraw);
    void setSelected(const std::vector<LayerId>& ids);

    // Operations on the layers that `select` names: all, the selected ones, or that of an id; other kinds name none.
    // The list is published once.

    /// A transposition stays relative or fixed, as the layer has it. It has no limits.
    void changeTranspose(const SelectType& select, const RelativeFixedValue& value);
    void changeVelocity(const SelectType& select, const RelativeFixedValue& value);
    void changeMute(const SelectType& select, const OnOffToggle& value);
    void changeMono(const SelectType& select, const OnOffToggle& value);
    void changeSolo(const SelectType& select, const OnOffToggle& value);
    void changeNoteToggle(const SelectType& select, const NoteToggle& value);

    /// Selects the layer above or below the first selected one, or that of an id. Without a layer there nothing
    /// changes.
    void dataSelect(const SelectType& select);
    /// Requests the window to open the dialog of a layer's settings.
    void editSelect(const SelectType& select) const;

private:
    template <class Message, class Change>
    void changeLayers(const SelectType& select, const Message& message, Change&& change);
    void readContent(const XmlElement& section, LayerList& into) override;
    Layer readItem(const XmlElement& element, LayerId id) const override;
    void replaceItem(Layer& layer, Layer read) override;
    void updatePlaying() override;

    LayerMessageManager messageManager;
};
}  // namespace Backend::Layers
