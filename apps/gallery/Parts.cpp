#include "apps/gallery/Parts.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QVBoxLayout>

#include "backend/bindings/functions/FunctionFactories.h"
#include "backend/xml/XmlDocument.h"
#include "gui/forms/LearnButton.h"
#include "gui/framework/ActivityLights.h"
#include "gui/framework/DialogFrame.h"
#include "gui/framework/EditBoxDialog.h"
#include "gui/framework/PopupMenu.h"
#include "gui/framework/Skinner.h"
#include "gui/musickeyboard/MusicKeyboardCtl.h"
#include "gui/presets/PresetCtl.h"
#include "gui/screens/computerinput/ComputerKeyboardCtl.h"
#include "gui/screens/computerinput/KeySettings.h"
#include "gui/screens/system/BeatLight.h"
#include "gui/screens/system/KeyBadge.h"
#include "gui/screens/system/ProgramButton.h"
#include "gui/screens/system/RecordGauge.h"
#include "gui/screens/system/StatusText.h"

using namespace Gui;
using namespace Backend;

namespace
{
constexpr int SOUNDING = 60;
constexpr int UNSENT = 64;
constexpr int HELD = 67;

template <class Control>
Control* sized(Control* control, const QSize& size)
{
    control->setFixedSize(size);
    return control;
}

QWidget* inLine(std::initializer_list<QWidget*> controls)
{
    auto* line = new QWidget;
    auto* layout = new QHBoxLayout(line);
    layout->setContentsMargins({});
    for (QWidget* control : controls) layout->addWidget(control);
    layout->addStretch();
    return line;
}

QLabel* pictureOf(QWidget& widget)
{
    auto* picture = new QLabel;
    picture->setPixmap(widget.grab());
    return picture;
}
}  // namespace

Parts::Parts(OrvGuiIF& owner)
    : gui(owner),
      rows(new QFormLayout(this)),
      keys(owner.getOrvIF(), lists),
      edits(owner.getOrvMessageManager()),
      keyEditor(keys, edits, [](const QString&) {})
{
    addStatus();
    addPresets();
    addKeyboards();
}

void Parts::addStatus()
{
    const GdiManager& gdi = gui.getGdiManager();
    const auto make = [&]<class Control>(Control* control, int width, int height = 24) {
        return sized(control, gdi.px(QSize(width, height)));
    };
    auto* program = make(new System::ProgramButton(gdi, nullptr), 564, 64);
    program->showProgram(2, "Ballad with Strings *", "Gig *: next 4 Organ");
    auto* beat = make(new System::BeatLight(gdi, nullptr), 16, 16);
    rows->addRow("Program, beat", inLine({program, beat}));
    lights.push_back([beat] { beat->showClock(479, 250); });

    std::vector<System::KeyBadge*> badges;
    for (const KeyTarget target : {KeyTarget::music, KeyTarget::text, KeyTarget::elsewhere}) {
        badges.push_back(make(new System::KeyBadge(gdi, nullptr), 96));
        badges.back()->show(target);
    }
    rows->addRow("Keys", inLine({badges[0], badges[1], badges[2]}));

    const auto statusText = [&] { return make(new System::StatusText(gdi, nullptr), 460); };
    auto* state = statusText();
    state->showState("Synthesizer, JACK 48000 Hz, 256 frames, load 3 %");
    auto* trouble = statusText();
    trouble->showTrouble("No sound: no JACK server is running. Setup");
    auto* message = statusText();
    lights.push_back([message] { message->showMessage("Saved to Gig, program 3"); });
    rows->addRow("Status", inLine({state, trouble}));
    rows->addRow("Status, done", message);

    auto* inputs = make(new ActivityLights(gdi, "In", nullptr), 112);
    inputs->setPorts({"Keys", "Pads", "Faders"});
    lights.push_back([inputs] { inputs->flash(0b101); });
    auto* off = make(new System::RecordGauge(gdi, nullptr), 140);
    auto* recording = make(new System::RecordGauge(gdi, nullptr), 140);
    off->showFill(20);
    recording->showFill(70);
    recording->showRecording(true);
    rows->addRow("Activity, record", inLine({inputs, off, recording}));

    const LearnKinds kinds{.key = true, .midiEvent = true, .joystickButton = true, .joystickAxis = true};
    auto* learn = new Forms::LearnButton(gui.getLearner(), kinds);
    auto* waiting = new Forms::LearnButton(gui.getLearner(), kinds);
    waiting->setChecked(true);
    auto* disabled = new Forms::LearnButton(gui.getLearner(), kinds);
    disabled->setEnabled(false);
    rows->addRow("Learn, waiting", inLine({learn, waiting, disabled}));
}

void Parts::addPresets()
{
    PresetList presets;
    presets.add({.name = "000 - Default"});
    std::vector<Preset::PresetCtl*> all;
    for (const bool isEdited : {false, true}) {
        auto* row = sized(new Preset::PresetCtl(gui, PresetSections::LAYERS, nullptr),
                          gui.getGdiManager().px(QSize(400, Preset::PresetCtl::HEIGHT)));
        row->setPresets(presets, true);
        row->showCurrent("000 - Default");
        row->showEdited(isEdited);
        all.push_back(row);
    }
    rows->addRow("Presets", inLine({all[0], all[1]}));
}

void Parts::addKeyboards()
{
    MidiEngine::MidiOutputPorts ports(2);
    ports[1].found = false;
    piano = new Output::MusicKeyboardCtl(gui, nullptr);
    piano->handleMidiOutputPortsChanged(ports);
    const auto play = [this](int output, int note) {
        piano->displayMidiOutputEvent(MidiEngine::OrvMidiMessage(
            {.type = MidiEngine::MessageType::noteOn, .d1 = note, .d2 = 100, .output = output}));
    };
    play(0, SOUNDING);
    play(1, UNSENT);
    const QPointF place = QRectF(piano->getOutlines().keyRectangle(HELD)).center();
    QMouseEvent press(QEvent::MouseButtonPress, place, piano->mapToGlobal(place), Qt::LeftButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(piano, &press);
    piano->setFixedSize(piano->size());
    rows->addRow(piano);

    Backend::ComputerInput::KeyConfigurationMap bindings;
    const auto bind = [&](const char* text) {
        const XmlDocument document(text, XmlDocument::Source::text);
        bindings.put(
            Backend::ComputerInput::KeyConfiguration::fromXml(document.getRoot(), [this](const XmlElement& function) {
                return FunctionManagement::createFunctionFromXml(function, gui.getOrvIF());
            }));
    };
    bind("<Key id='A'><Function><Down><MidiNoteOn zone='0' note='C4'/></Down></Function></Key>");
    bind("<Key id='K'><Function><Down><MidiNoteOn zone='1' note='C5'/></Down></Function></Key>");
    bind("<Key id='F1'><Function><Down><ResetOrv/></Down></Function></Key>");
    keys.take(bindings);
    auto* board = new Gui::ComputerInput::ComputerKeyboardCtl(gui, keys, keyEditor, zones, nullptr);
    board->showConfigurations();
    board->showKeyDown('S');
    board->setFixedSize(board->size());
    rows->addRow(board);
    keyEditor.getSelection().select({Gui::ComputerInput::KeyRecords::idOf({.keyCode = 'A'}),
                                     Gui::ComputerInput::KeyRecords::idOf({.keyCode = 'K'})});
    keyEditor.setOpen(true);
    rows->addRow(sized(new Gui::ComputerInput::KeySettings(gui, keyEditor, keys, nullptr),
                       gui.getGdiManager().px(QSize(944, Gui::ComputerInput::KeySettings::HEIGHT))));
}

void Parts::light()
{
    for (const auto& each : lights) each();
}

bool Parts::isLit() const { return piano->isLit(SOUNDING) && piano->isHollow(UNSENT); }

void Parts::photographWindows()
{
    PopupMenu menu;
    menu.addItem("Rename...");
    menu.addItem({.text = "Save...", .useBold = true});
    menu.addItem({.text = "Undo", .enabled = false});
    menu.addSubMenu("Copy Layer # To Channel").addItem({.text = "1", .id = 10});
    menu.setSelected(0);
    gui.getSkinner().skinWindow(menu);
    menu.resize(menu.sizeHint());

    EditBoxDialog dialog("Add Preset", "Name:", "a|b", EditBoxDialog::Blank::refused, *this);
    dialog.refuse = [](const QString&) { return QString("Name cannot contain this character: |"); };
    DialogFrame::addTo(dialog, gui.getGdiManager());
    gui.getSkinner().skinWindow(dialog);
    dialog.accept();
    dialog.adjustSize();
    rows->addRow("Menu, dialog", inLine({pictureOf(menu), pictureOf(dialog)}));
}
