#pragma once

#include <cstdint>
#include <vector>

#include "backend/model/Edit.h"
#include "backend/model/Layer.h"

class QString;

namespace Gui
{
class OrvGuiIF;

namespace Forms
{
class Selection;
}
}  // namespace Gui

namespace Gui::Layers
{
/// What the user does to layers, as posts to the backend. What a file holds is an edit of the program; solo and what
/// functions find selected are not. Unknown ids are ignored. The GUI thread.
class LayerEdits
{
public:
    using Id = Backend::Layers::LayerId;

    /// All must outlive it. `shownLayers` are the layers as the backend reported them.
    LayerEdits(OrvGuiIF& owner, std::vector<Backend::Layers::Layer>& shownLayers, Forms::Selection& selected)
        : gui(owner), layers(shownLayers), selection(selected)
    {
    }

    /// The edits of a drag have one number, see `EditPoster::beginGesture`.
    void setRange(Id id, int lowNote, int highNote, std::uint32_t gesture);
    void toggleMute(Id id);
    void toggleSolo(Id id);

    /// Before the first selected layer, or at the end if none is selected.
    void add();
    /// The selected layers, or the last one if none is selected.
    void remove();
    /// A copy behind it; below 0 on the default channel.
    void copyToChannel(Id id, int channel);
    /// A copy behind it.
    void copy(Id id);

    /// The selection of the window becomes that which functions use; the backend does not report that.
    void selectForFunctions();

private:
    bool hasLayer(Id id) const { return id >= 0 && id < static_cast<Id>(layers.size()); }
    void addCopy(Id id, const QString& name, Backend::Fields fields);

    OrvGuiIF& gui;
    std::vector<Backend::Layers::Layer>& layers;
    Forms::Selection& selection;
};
}  // namespace Gui::Layers
