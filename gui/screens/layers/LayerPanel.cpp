#include "gui/screens/layers/LayerPanel.h"

#include <QLabel>
#include <QPushButton>
#include <algorithm>

#include "api/OrvGuiIF.h"
#include "backend/model/PresetSections.h"
#include "gui/forms/EditableSections.h"
#include "gui/framework/EditPoster.h"
#include "gui/framework/GdiManager.h"
#include "gui/framework/GuiMessageManagerMaster.h"
#include "gui/framework/Properties.h"
#include "gui/musickeyboard/BarView.h"
#include "gui/presets/PresetCtl.h"
#include "gui/screens/layers/LayerCtl.h"

namespace Gui::Layers
{
using Backend::Layers::Layer;

namespace
{
constexpr int ROW = 24;  // logical pixels, as all of these
constexpr int GAP = 4;
constexpr int LABEL_WIDTH = 60;
constexpr int BUTTON_WIDTH = 64;
constexpr int PRESETS = 560;  // the left edge of their row
constexpr int MOST_ROWS = 10;
}  // namespace

LayerPanel::LayerPanel(OrvGuiIF& owner, Panel* around)
    : Panel(around),
      gui(owner),
      editor(layers, owner.getEdits(), [this](const QString& text) { gui.displayMessage(text.toStdString()); }),
      edits(owner, layers, editor),
      messages(*this),
      list(new LayerCtl(owner, layers, editor.getSelection(), edits, nullptr)),
      view(new Output::BarView(owner.getGdiManager(), *list, LayerGeometry::TOP + MOST_ROWS * LayerGeometry::PITCH,
                               this))
{
    makeButtons();
    editor.observe(*this, [this] {
        if (editor.isOpen()) takeLists();
        list->layersChanged();
        fit();
    });
    list->onOpenSettings = [this] { editor.execute(Forms::RecordEditor::Command::settings); };
    list->onSelectRange = [this](Id id) { selectRange(id); };
    list->onModeChange = [this] { showModes(); };
    rangeSelect.onEnd = [this] { list->setRangedLayer(-1); };
    fit();
    gui.getEditableSections().add(editor, *list);
    gui.getGuiMessageManagerMaster().addMessageManager(&messages);
}

bool LayerPanel::hasListFocus() const { return list->hasFocus(); }

void LayerPanel::takeLists() { lists = Forms::takeLists(gui); }

void LayerPanel::makeButtons()
{
    auto* const label = new QLabel(tr("Layers"), this);
    place(*label, {MARGIN, 0, LABEL_WIDTH, ROW});
    int left = MARGIN + LABEL_WIDTH;
    const auto make = [&](const QString& text, const QString& name, const QString& help) {
        auto* const button = new QPushButton(text, this);
        place(*button, {left, 1, BUTTON_WIDTH, ROW - 5});
        left += BUTTON_WIDTH + GAP;
        button->setFocusPolicy(Qt::TabFocus);
        button->setAccessibleName(name);
        Property::setHelp(*button, help);
        return button;
    };
    connect(make(tr("Add"), tr("Add layer"), tr("Adds a layer before the selected one, or at the end.")),
            &QPushButton::clicked, [this] { edits.add(); });
    connect(make(tr("Delete"), tr("Delete layers"), tr("Deletes the selected layers, or the last one.")),
            &QPushButton::clicked, [this] { edits.remove(); });
    soloButton = make(tr("Solo"), tr("Solo mode"),
                      tr("On: the button of a layer solos it (S). Off: it mutes it (M). Solo is not saved."));
    soloButton->setCheckable(true);
    connect(soloButton, &QPushButton::clicked, [this](bool on) { list->setSoloMode(on); });
    infoButton = make(tr("Info"), tr("Layer info"), tr("Shows the settings of the layers instead of their numbers."));
    infoButton->setCheckable(true);
    connect(infoButton, &QPushButton::clicked, [this](bool on) { list->setInfoMode(on); });
    auto* const menu = make(tr("Menu"), tr("Menu of the layer"), tr("All that can be done to the current layer."));
    connect(menu, &QPushButton::clicked,
            [this, menu] { list->showRowMenu(list->getCurrentRow(), menu->mapToGlobal(QPoint(0, menu->height()))); });
    auto* const presets = new Preset::PresetCtl(gui, Backend::PresetSections::LAYERS, this,
                                                [this] { return editor.getSelection().getSelected(); });
    place(*presets, {PRESETS, 0, WIDTH - MARGIN - PRESETS, Preset::PresetCtl::HEIGHT});
}

void LayerPanel::showModes()
{
    soloButton->setChecked(list->isSoloMode());
    infoButton->setChecked(list->isInfoMode());
}

void LayerPanel::scaleChanged()
{
    list->rescale();
    fit();
}

void LayerPanel::fit()
{
    const int height = view->getLogicalHeight();
    place(*view, {0, ROW, WIDTH, height});
    setPanelSize({WIDTH, ROW + height});
}

void LayerPanel::hideEvent(QHideEvent* event)
{
    rangeSelect.end();
    Panel::hideEvent(event);
}

/// A second request for the same layer ends it.
void LayerPanel::selectRange(Id id)
{
    const bool isSame = rangeSelect.isActive() && editor.getSelection().isCurrent(id);
    rangeSelect.end();
    if (isSame) return;
    list->selectRow(id);
    rangeSelect.begin(gui.getMainMusicKeyboardCtl(),
                      [this, id, gesture = gui.getEdits().beginGesture()](int low, int high) {
                          list->setRange(id, low, high, gesture);
                      });
    list->setRangedLayer(id);
    gui.displayHelp(tr("Play the lowest and the highest note. Or click the lowest one on the piano keyboard with the "
                       "left button, the highest with the right one. Escape ends it.")
                        .toStdString());
}

void LayerPanel::showNotes(const Backend::MidiEngine::NoteActivity& activity)
{
    list->showNotes(activity);
    rangeSelect.takePlayed(activity.played);
}

// --- changes that the backend reports

void LayerPanel::handleLayers(const Backend::Layers::LayerList& newLayers)
{
    editor.report([this, all = newLayers.getLayers()] { layers.take(all); });
}

void LayerPanel::change(Id id, std::function<void(Layer& layer)> change)
{
    editor.report([this, id, set = std::move(change)] {
        if (id >= 0 && id < static_cast<Id>(layers.size())) set(layers.at(id));
    });
}

void LayerPanel::handleLayerSelected(Id id, bool selected)
{
    change(id, [=](Layer& layer) { layer.selected = selected; });
}

void LayerPanel::handleLayerTranspose(Id id, std::int32_t transpose)
{
    change(id, [=](Layer& layer) { layer.transpose.value = transpose; });
}

void LayerPanel::handleLayerVelocity(Id id, std::int32_t velocity)
{
    change(id, [=](Layer& layer) { layer.velocity.value = velocity; });
}

void LayerPanel::handleLayerMute(Id id, bool mute)
{
    change(id, [=](Layer& layer) { layer.mute = mute; });
}

void LayerPanel::handleLayerMono(Id id, bool mono)
{
    change(id, [=](Layer& layer) { layer.mono = mono; });
}

void LayerPanel::handleLayerSolo(Id id, bool solo)
{
    change(id, [=](Layer& layer) { layer.solo = solo; });
}

void LayerPanel::handleLayerNoteToggle(Id id, NoteToggle::Mode mode)
{
    change(id, [=](Layer& layer) { layer.toggle.mode = mode; });
}

/// Names of outputs stand on the bars.
void LayerPanel::handleMidiOutputPorts() { list->update(); }

/// Functions have no window selection, so "selected" keeps the window's, and up and down go from it.
void LayerPanel::handleLayerEdit(const SelectType& select)
{
    switch (select.kind) {
        case SelectType::Kind::specific:
            editor.getSelection().select({select.value});
            break;
        case SelectType::Kind::up:
            editor.getSelection().move(Forms::Selection::Step::next, {});
            break;
        case SelectType::Kind::down:
            editor.getSelection().move(Forms::Selection::Step::previous, {});
            break;
        case SelectType::Kind::all:
            editor.getSelection().selectAll();
            break;
        case SelectType::Kind::selected:
            break;
    }
    editor.setOpen(!editor.getSelection().getSelected().empty());
}
}  // namespace Gui::Layers
