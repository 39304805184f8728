#pragma once

#include <cstdint>

#include "backend/model/Layer.h"

class QKeyEvent;

namespace Gui
{
class OrvGuiIF;

class PopupMenu;

namespace Forms
{
class LayerRecords;
class RecordEditor;
}  // namespace Forms
}  // namespace Gui

namespace Gui::Layers
{
/// What the user does to layers, as posts to the backend. What a file holds is an edit of the program; solo and what
/// functions find selected are not. Unknown ids are ignored. The GUI thread.
class LayerEdits
{
public:
    using Id = Backend::Layers::LayerId;

    /// All must outlive it.
    LayerEdits(OrvGuiIF& owner, Forms::LayerRecords& shownLayers, Forms::RecordEditor& recordEditor)
        : gui(owner), layers(shownLayers), editor(recordEditor)
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

    /// The commands on the selected layers.
    bool useKey(const QKeyEvent& event);
    void addTo(PopupMenu& menu);

    /// The selection of the window becomes that which functions use; the backend does not report that.
    void selectForFunctions();

private:
    bool hasLayer(Id id) const;

    OrvGuiIF& gui;
    Forms::LayerRecords& layers;
    Forms::RecordEditor& editor;
};
}  // namespace Gui::Layers
