#include "gui/screens/computerinput/ComputerInputPanel.h"

#include <QCheckBox>
#include <QPushButton>
#include <QSignalBlocker>
#include <utility>

#include "api/OrvGuiIF.h"
#include "backend/model/PresetSections.h"
#include "gui/forms/EditableSections.h"
#include "gui/forms/LearnButton.h"
#include "gui/framework/EditPoster.h"
#include "gui/framework/GuiMessageManagerMaster.h"
#include "gui/framework/Properties.h"
#include "gui/presets/SectionRow.h"
#include "gui/screens/computerinput/ComputerKeyboardCtl.h"
#include "gui/screens/computerinput/KeySettings.h"

namespace Gui::ComputerInput
{
using Backend::ComputerInput::KeyConfiguration;
using Backend::ComputerInput::KeyConfigurationMap;

namespace
{
constexpr int WIDTH = 960;
constexpr int HEIGHT = 34 + 238 + 8;
constexpr int MARGIN = 8;
constexpr int ROW = 22;
constexpr QRect USE_MODIFIERS(730, 4, 222, ROW);
constexpr int KEYBOARD_TOP = 34;
}  // namespace

ComputerInputPanel::ComputerInputPanel(OrvGuiIF& owner, Panel* around)
    : Panel(around),
      gui(owner),
      records(owner.getOrvIF(), lists),
      editor(records, owner.getEdits(), [this](const QString& text) { gui.displayMessage(text.toStdString()); }),
      messages(*this),
      keyboard(new ComputerKeyboardCtl(owner, records, editor, zones, this))
{
    makeTopRow();
    makeEditing();
    fit();
    scaleChanged();
    gui.getGuiMessageManagerMaster().addMessageManager(&messages);
}

void ComputerInputPanel::scaleChanged()
{
    keyboard->rescale();
    keyboard->move((getGdi().px(WIDTH) - keyboard->width()) / 2, getGdi().px(KEYBOARD_TOP));
}

void ComputerInputPanel::makeTopRow()
{
    row = new Preset::SectionRow(gui, Backend::PresetSections::COMPUTER_INPUT, this,
                                 [this] { return editor.getSelection().getSelected(); });
    place(*row, {row->PLACE, row->SIZE});

    useModifiers = new QCheckBox(tr("Use modifiers on key up"), this);
    place(*useModifiers, USE_MODIFIERS);
    useModifiers->setLayoutDirection(Qt::RightToLeft);  // the check box is at the right edge of the panel
    Property::setHelp(*useModifiers, tr("When off, shift / ctrl / alt / win modifier state is ignored for key up."));
    connect(useModifiers, &QCheckBox::clicked, [this](bool on) {
        gui.getEdits().change(Backend::PresetSections::COMPUTER_INPUT.rootElement, Backend::SECTION_RECORD,
                              {"useKeyUpMod", on ? "true" : "false"}, tr("use modifiers on key up").toStdString(),
                              gui.getEdits().beginGesture());
    });
}

void ComputerInputPanel::makeEditing()
{
    // Before the settings, which are made from the lists.
    editor.observe(*this, [this] {
        if (editor.isOpen()) lists = Forms::takeLists(gui);
    });
    editButton = &row->addButton(tr("Edit"), tr("Edit keys"),
                                 tr("On: a click on the board selects keys, and beneath it stands what they do. Off: a "
                                    "click plays, and a click with the right button edits a key."));
    editButton->setCheckable(true);
    connect(editButton, &QPushButton::clicked, [this](bool on) { editor.setOpen(on); });

    auto* const learn = new Forms::LearnButton(gui.getLearner(), {.key = true}, row);
    row->addButton(*learn);
    learn->onLearned = [this](const auto& input) {
        const Key key = std::get<Key>(input);
        showModifiers(KeyRecords::withModifiers(-1, key));
        editor.getSelection().select({KeyRecords::idOf(key)});
        editor.setOpen(true);
    };

    settings = new KeySettings(gui, editor, records, this);
    place(*settings, {MARGIN, HEIGHT, WIDTH - 2 * MARGIN, KeySettings::HEIGHT - MARGIN});
    settings->onModifiers = [this](const Key& modifiers) { showModifiers(modifiers); };
    editor.observe(*this, [this] { fit(); });
    gui.getEditableSections().add(editor, *keyboard);
}

void ComputerInputPanel::fit()
{
    const bool isOpen = editor.isOpen();
    editButton->setChecked(isOpen);
    settings->setVisible(isOpen);
    setPanelSize({WIDTH, HEIGHT + (isOpen ? KeySettings::HEIGHT : 0)});
    if (!isOpen && records.getModifiers() != Key()) showModifiers({});
}

/// The same keys are selected under these.
void ComputerInputPanel::showModifiers(const Key& modifiers)
{
    Forms::Selection& selection = editor.getSelection();
    std::vector<Backend::RecordId> selected;
    for (const auto id : selection.getSelected())
        selected.push_back(KeyRecords::idOf(KeyRecords::withModifiers(KeyRecords::keyOf(id).keyCode, modifiers)));
    records.setModifiers(modifiers);
    settings->showModifiers();
    selection.setRecords(records.getIds());
    selection.select(selected);
}

bool ComputerInputPanel::isBound(const Key& key) const
{
    const KeyConfiguration* const configuration = records.getKeys().findElement(key);
    return configuration != nullptr && !configuration->isEmpty();
}

// --- changes that the backend reports

void ComputerInputPanel::handleKeyConfigurations(const std::vector<KeyConfiguration>& configurations)
{
    for (const KeyConfiguration& configuration : configurations) reported.put(configuration);
    showReported();
}

void ComputerInputPanel::handleComputerInput(bool useKeyUpMod, KeyConfigurationMap newKeys)
{
    const QSignalBlocker quiet(useModifiers);
    useModifiers->setChecked(useKeyUpMod);
    reported = std::move(newKeys);
    showReported();
}

/// An older report that waits shows the newest one.
void ComputerInputPanel::showReported()
{
    gui.handleKeysChanged(reported);
    editor.report([this] { records.take(reported); });
}

void ComputerInputPanel::handleComputerInputChanged(const std::string& preset)
{
    row->getPresets().showCurrent(preset);
}

void ComputerInputPanel::handlePresetLoaded() { keyboard->showConfigurations(); }

void ComputerInputPanel::handleZones(const Backend::Zones::ZoneMap& newZones)
{
    zones = newZones;
    keyboard->showConfigurations();
}

void ComputerInputPanel::handleZoneTranspose(Backend::Zones::ZoneId zone, int transpose)
{
    auto* const changed = zones.findElement(zone);
    if (changed == nullptr) return;
    changed->transpose = static_cast<std::int8_t>(transpose);
    keyboard->showConfigurations();
}

Preset::PresetGuiOwner& ComputerInputPanel::getPresets() { return row->getPresets(); }
}  // namespace Gui::ComputerInput
