#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "backend/model/LayerList.h"
#include "backend/values/SelectType.h"
#include "gui/forms/LayerRecords.h"
#include "gui/forms/RecordEditor.h"
#include "gui/framework/Panel.h"
#include "gui/screens/layers/LayerEdits.h"
#include "gui/screens/layers/LayerGuiMessageManager.h"
#include "gui/screens/layers/RangeSelect.h"

class QPushButton;

namespace Gui
{
class OrvGuiIF;

namespace Output
{
class BarView;
}
}  // namespace Gui

namespace Gui::Layers
{
class LayerCtl;

/// The layers below the music keyboard, with their buttons. It shows its own copy of them.
class LayerPanel final : public Panel
{
public:
    using Id = Backend::Layers::LayerId;

    static constexpr int WIDTH = 960;  ///< logical pixels, as the next one
    static constexpr int MARGIN = 5;

    LayerPanel(OrvGuiIF& owner, Panel* around);

    /// Which layers the window edits, and what it does to them.
    Forms::RecordEditor& getEditor() { return editor; }
    Forms::LayerRecords& getLayers() { return layers; }
    /// Whether the user reached the layers by keys.
    bool hasListFocus() const;
    /// What the settings offer, the outputs and the presets of sequences, is other than before.
    void takeLists();

    /// Lights the layers; while a range is taken, what is played sets it.
    void showNotes(const Backend::MidiEngine::NoteActivity& activity);

    // Changes that the backend reports
    void handleLayers(const Backend::Layers::LayerList& list);
    void handleLayerSelected(Id id, bool selected);
    void handleLayerTranspose(Id id, std::int32_t transpose);
    void handleLayerVelocity(Id id, std::int32_t velocity);
    void handleLayerMute(Id id, bool mute);
    void handleLayerMono(Id id, bool mono);
    void handleLayerSolo(Id id, bool solo);
    void handleLayerNoteToggle(Id id, NoteToggle::Mode mode);
    void handleMidiOutputPorts();
    /// A function requests to edit a layer.
    void handleLayerEdit(const SelectType& select);

protected:
    void scaleChanged() override;
    void hideEvent(QHideEvent* event) override;

private:
    void makeButtons();
    void fit();
    void showModes();
    void selectRange(Id id);
    void change(Id id, std::function<void(Backend::Layers::Layer& layer)> change);

    OrvGuiIF& gui;
    Forms::FieldLists lists;
    Forms::LayerRecords layers{lists};
    Forms::RecordEditor editor;
    LayerEdits edits;
    LayerGuiMessageManager messages;
    RangeSelect rangeSelect;
    LayerCtl* list;
    Output::BarView* view;
    QPushButton* soloButton = nullptr;
    QPushButton* infoButton = nullptr;
};
}  // namespace Gui::Layers
