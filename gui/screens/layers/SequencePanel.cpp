#include "gui/screens/layers/SequencePanel.h"

#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <algorithm>
#include <chrono>

#include "api/OrvGuiIF.h"
#include "api/OrvIF.h"
#include "gui/forms/LayerRecords.h"
#include "gui/forms/RecordEditor.h"
#include "gui/framework/EditPoster.h"
#include "gui/framework/PopupMenu.h"
#include "gui/framework/Properties.h"
#include "gui/presets/PresetsDialog.h"
#include "gui/screens/layers/SequenceGrid.h"

namespace Gui::Layers
{
using Backend::RecordId;
using Backend::SequenceManagement::SequenceSetting;

namespace
{
// Logical pixels
constexpr int TITLE_ROW = 24;
constexpr int TITLE_WIDTH = 300;
constexpr int STEP_BUTTON = 72;
constexpr int BUTTON_GAP = 4;

constexpr auto PULL = std::chrono::milliseconds(34);  // up to 30 times a second
}  // namespace

SequencePanel::SequencePanel(OrvGuiIF& owner, Forms::LayerRecords& shownLayers, Forms::RecordEditor& recordEditor,
                             QWidget* parent)
    : QWidget(parent),
      gui(owner),
      layers(shownLayers),
      editor(recordEditor),
      title(new QLabel(this)),
      view(new QScrollArea(this)),
      grid(new SequenceGrid(owner)),
      menu(new PopupMenu(this))
{
    const auto act = [this](QPushButton* button, void (SequenceGrid::*execute)()) {
        connect(button, &QPushButton::clicked, grid, execute);
    };
    act(addButton(tr("Add"), tr("Add step"), tr("Adds a rest before the current step.")), &SequenceGrid::insertStep);
    act(addButton(tr("Delete"), tr("Delete step"), tr("Removes the current step.")), &SequenceGrid::removeStep);
    act(addButton(tr("Rest"), tr("Make the step a rest"), tr("The current step plays nothing.")),
        &SequenceGrid::makeRest);
    connect(addButton(tr("Presets"), tr("Presets of sequences"),
                      tr("Saves this sequence as a preset, renames and deletes presets. A layer gets the steps of a "
                         "preset when it is chosen and when its program is loaded.")),
            &QPushButton::clicked, this, [this] { showMenu(); });

    view->setFrameShape(QFrame::NoFrame);
    view->setFocusPolicy(Qt::NoFocus);
    view->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view->setWidget(grid);
    grid->onReveal = [this](const QRect& place) { view->ensureVisible(place.center().x(), 0, place.width(), 0); };
    grid->onChange = [this](const SequenceGrid::Nodes& nodes, SequenceGrid::Gesture gestureKind) {
        const std::vector<RecordId> ids = editor.getSelection().getSelected();
        if (gestureKind == SequenceGrid::Gesture::begins) gesture = editor.getEdits().beginGesture();
        editor.change(ids, tr("Sequence"), gesture, [&] {
            for (const RecordId id : ids) {
                SequenceSetting& sequence = layers.at(id).sequenceSetting;
                sequence.preset.clear();
                sequence.nodes = nodes;
            }
        });
        follow();
    };
    connect(&pull, &QTimer::timeout, this, [this] { gui.getOrvIF().sendSequenceSteps(); });
    handlePresets();
}

QPushButton* SequencePanel::addButton(const QString& text, const QString& name, const QString& help)
{
    auto* const button = new QPushButton(text, this);
    button->setFocusPolicy(Qt::TabFocus);
    button->setAccessibleName(name);
    Property::setHelp(*button, help);
    buttons.push_back(button);
    return button;
}

int SequencePanel::getLogicalHeight() { return TITLE_ROW + SequenceGrid::getLogicalHeight(); }

void SequencePanel::rescale()
{
    grid->rescale();
    resizeEvent(nullptr);
}

void SequencePanel::resizeEvent(QResizeEvent*)
{
    const GdiManager& gdi = gui.getGdiManager();
    int left = TITLE_WIDTH;
    title->setGeometry(gdi.px(QRect(0, 0, TITLE_WIDTH - BUTTON_GAP, TITLE_ROW)));
    for (QPushButton* button : buttons) {
        button->setGeometry(gdi.px(QRect(left, 1, STEP_BUTTON, TITLE_ROW - 5)));
        left += STEP_BUTTON + BUTTON_GAP;
    }
    view->setGeometry(0, gdi.px(TITLE_ROW), width(), height() - gdi.px(TITLE_ROW));
}

// --- what is shown

/// The current layer, if it is selected; -1 for none.
RecordId SequencePanel::shownLayer() const
{
    const std::vector<RecordId> ids = editor.getSelection().getSelected();
    if (ids.empty() || ids.back() >= static_cast<RecordId>(layers.size())) return -1;
    const auto current = editor.getSelection().getCurrent();
    return current && editor.getSelection().isSelected(*current) ? *current : ids.front();
}

bool SequencePanel::isWanted() const
{
    return editor.isOpen() && shownLayer() >= 0 &&
           std::ranges::any_of(editor.getSelection().getSelected(),
                               [this](RecordId id) { return layers.at(id).arpeggio.has_value(); });
}

void SequencePanel::follow()
{
    if (!isWanted()) return;
    const RecordId shown = shownLayer();
    const SequenceSetting& sequence = layers.at(shown).sequenceSetting;
    const bool differ = std::ranges::any_of(editor.getSelection().getSelected(), [&](RecordId id) {
        return layers.at(id).sequenceSetting.nodes != sequence.nodes;
    });
    grid->setNodes(sequence.nodes);
    title->setText(differ                    ? tr("Sequence of %1; others are different").arg(layers.nameOf(shown))
                   : sequence.nodes.empty()  ? tr("Sequence: off")
                   : sequence.preset.empty() ? tr("Sequence: --local--")
                                             : tr("Sequence: %1").arg(QString::fromStdString(sequence.preset)));
}

void SequencePanel::handleSteps(const std::vector<int>& steps)
{
    const auto shown = static_cast<std::size_t>(shownLayer());
    grid->setPlayingStep(shown < steps.size() ? steps[shown] : -1);
}

void SequencePanel::showEvent(QShowEvent*) { pull.start(PULL); }

void SequencePanel::hideEvent(QHideEvent*) { pull.stop(); }

// --- presets

void SequencePanel::handlePresets()
{
    presets = {};
    for (const std::string& name : gui.getSequencePresetList()) presets.add({.name = name});
}

void SequencePanel::addPreset(const std::string& name, bool)
{
    gui.addSequencePreset(name, layers.at(shownLayer()).sequenceSetting.getSequenceText());
}

void SequencePanel::renamePreset(const std::string& oldName, const std::string& newName)
{
    gui.renameSequencePreset(oldName, newName);
    presets.rename(oldName, newName);
}

void SequencePanel::deletePreset(const std::string& name)
{
    gui.deleteSequencePreset(name);
    presets.remove(name);
}

void SequencePanel::showMenu()
{
    menu->clear();
    menu->addItem({.text = tr("Save Preset As..."), .enabled = shownLayer() >= 0 && grid->getRowCount() > 0});
    menu->addItem(tr("Edit Presets..."));
    menu->onChosen = [this](int item) {
        if (item == 0) return Preset::showAddPresetDialog(*this, *this);
        auto* dialog = new Preset::PresetsDialog(*this, *this);
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        dialog->open();
    };
    menu->showBelow(*buttons.back());
}
}  // namespace Gui::Layers
