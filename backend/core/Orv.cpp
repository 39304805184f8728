#include "backend/core/Orv.h"

#include <algorithm>
#include <array>
#include <filesystem>

#include "api/OrvUtils.h"
#include "backend/bindings/functions/FunctionFactories.h"
#include "backend/core/OrvCommands.h"
#include "backend/messages/GuiMessages.h"
#include "backend/messages/OrvMessages.h"
#include "backend/model/WindowMove.h"
#include "backend/xml/Text.h"
#include "backend/xml/XmlDocument.h"
#include "platform/Clock.h"
#include "platform/DbgStream.h"
#include "platform/Path.h"

namespace Backend
{
using MidiEngine::isEnabled;
using MidiEngine::MessageType;
using MidiEngine::OrvMidiMessage;

namespace
{
constexpr int RELEASE_VELOCITY = 100;

constexpr const char* BANKS = "Banks";
constexpr const char* DEFAULT_BANK = "Default Bank.bnk";
}  // namespace

Orv::Orv(const std::string& application, MidiEngine::MidiPlayer& player, RetroRecord::Restore restoreRecord)
    : applicationName(application),
      files([this] { messageManagerMaster.post(OrvMessage::FILES_DONE()); }),
      orvCommands(messageManagerMaster, OrvMessage::RANGE, [this](Message& message) { handleCommand(message); }),
      orvMessageManager(messageManagerMaster, *this),
      midiEngine(player),
      retroRecord([&player] { return player.getMilliseconds(); }, restoreRecord),
      oscManager(*this, messageManagerMaster),
      joystickManager(*this, messageManagerMaster),
      computerInputManager(*this, messageManagerMaster),
      midiInputManager(*this, messageManagerMaster),
      controlManager(*this, messageManagerMaster),
      layerManager(*this, messageManagerMaster),
      zoneManager(*this, messageManagerMaster)
{
    messageManagerMaster.addMessageManager(&orvCommands);
    for (ProgramSection* section : sections) messageManagerMaster.addMessageManager(&section->getMessageManager());
    midiEngine.setControlUpdates(&controlManager.getUpdates());
}

Orv::~Orv()
{
    midiEngine.end();
    midiEngine.setEventRecorder(nullptr);
    midiEngine.setEventLog(nullptr);
    midiEngine.setInputLog(nullptr);
    stop();
}

void Orv::initialize()
{
    assertBackendThread();
    registrySettings.loadFromRegistry(OrvUtils::getRegistryKey(applicationName));
    startDisplay();
    startRetroRecord();
    sequencePresets.load();
    for (ProgramSection* section : sections)
        if (section->hasPresets()) connectPresets(*section);
    midiEngine.initialize(registrySettings.getDefaultMidiOutput(), registrySettings.getMidiThru());
    midiEngine.setKeepNotes(keepsNotes());
    updateProgramChangeInput();
    prepareBanks();
    initializing = true;
    loadFirstBank();
    initializing = false;
}

/// The bank and program of the last end, or the default bank.
void Orv::loadFirstBank()
{
    const auto& last = registrySettings.get<Settings::LAST_BANK>();
    const int number = registrySettings.get<Settings::LAST_PROGRAM>();
    const bool isWanted = loadsLast && registrySettings.get<Settings::CONTINUE_LAST>() && !last.empty();
    if (!isWanted || !openBank(last)) return loadBank(registrySettings.getDefaultBank());
    program.number = static_cast<std::size_t>(number) < bank.programNames.size() ? number : 0;
    showBank();
}

void Orv::continueLast(bool loadsIt)
{
    assertBackendThread();
    storesLast = true;
    loadsLast = loadsIt;
}

void Orv::endInitialize()
{
    assertBackendThread();
    controlManager.sendAll(true);
}

void Orv::end()
{
    assertBackendThread();
    midiEngine.end();
    midiEngine.setEventRecorder(nullptr);
    midiEngine.setEventLog(nullptr);
    midiEngine.setInputLog(nullptr);
    retroRecord.end();
    display.end();
    if (storesLast && !bank.name.empty()) {
        registrySettings.set<Settings::LAST_BANK>(bank.name);
        registrySettings.set<Settings::LAST_PROGRAM>(program.number);
    }
    if (recovery) recovery->remove();
    recovery.reset();
    registrySettings.saveToRegistry(OrvUtils::getRegistryKey(applicationName));
}

void Orv::startDisplay()
{
    auto& commands = display.getMessageManager();
    commands.postSetDisplayNumbers(registrySettings.getDisplayNumbers());
    commands.postSetDisplayTimes(registrySettings.get<Settings::DISPLAY_TIMES>());
    commands.postSetDisplayMidiInputEvents(registrySettings.getDisplayMidiInputEvents());
    commands.postSetDisplayMidiOutputEvents(registrySettings.getDisplayMidiOutputEvents());
    updateInputLog();
    display.start();
}

void Orv::startRetroRecord()
{
    const bool enabled = registrySettings.isRetroRecordEnabled();
    retroRecord.start(enabled, registrySettings.getRetroRecordBufferSize(), OrvUtils::getRecordDir());
    midiEngine.setEventRecorder(enabled ? &engineRecorder : nullptr);
}

/// Commands that use the bank or a file wait while the files thread works.
void Orv::handleCommand(Message& message)
{
    const auto execute = [this](Message& command) { executeOrvCommand(*this, command); };
    if (message.number == OrvMessage::FILES_DONE)
        files.finish(execute);
    else if (message.number == OrvMessage::SET_LIST_WRITTEN)
        OrvMessage::SET_LIST_WRITTEN.deliver(
            message, [this](SetListWrite result, const std::string& path) { setListWritten(result, path); });
    else if (message.number == OrvMessage::WRITE_RECOVERY)
        writeRecovery();
    else if (message.number == OrvMessage::SETTLE_MIDI_INPUT)
        midiEngine.getMessageManager().postSettleMidiInput(static_cast<int>(message.wparam));
    else if (files.isBusy() && waitsForFiles(message.number))
        files.hold(std::move(message));
    else
        execute(message);
}

/// Copies the installed banks for a new user, with a default bank among them. An empty folder counts as a new user's,
/// because it may have been made when no banks were installed.
void Orv::prepareBanks()
{
    const std::string folder = OrvUtils::pathIn(OrvUtils::getOrvAppDataDir(), BANKS);
    if (folder.empty()) return;
    std::error_code none;
    if (!std::filesystem::is_directory(pathOf(folder), none) || std::filesystem::is_empty(pathOf(folder), none))
        OrvUtils::copyFiles(BANKS, BANKS);
    if (Text::trim(registrySettings.getDefaultBank()).empty())
        registrySettings.setDefaultBank(OrvUtils::pathIn(folder, DEFAULT_BANK));
}

void Orv::requestRealTime()
{
    messageManagerMaster.setRealTimeStep(RealTimeStep::backend);
    midiEngine.getMessageManager().setRealTimeStep(RealTimeStep::commands);
}

HostStart Orv::getHostStart() const
{
    assertBackendThread();
    return {bank.name, registrySettings.getDefaultBank(), registrySettings.getEnabledMidiInputs(),
            registrySettings.getEnabledMidiOutputs()};
}

void Orv::useHostSettings(HostSettingsUse use) { hostSettings = std::move(use); }

void Orv::passHostSettings()
{
    assertBackendThread();
    if (hostSettings && hostSettings->changed) hostSettings->changed(registrySettings.getHostSettings());
}

void Orv::saveRetroRecord(const std::string& stem)
{
    retroRecord.save(stem, [window = getGuiWindowHandle()](const RetroRecord::SaveReport& report) {
        notify(window, GuiMessage::RETRO_RECORD_SAVED, report);
    });
}

HostState Orv::saveState()
{
    assertBackendThread();
    const bool written = registrySettings.saveToRegistry(OrvUtils::getRegistryKey(applicationName));
    setRecoveryChanged();  // it must be newer than what the host writes now
    return {bank.name, program.number, getProgramAsString(), written};
}

// --- the window

WindowHandle Orv::getGuiWindowHandle() const
{
    const MutexLock lock(guiWindowLock);
    return guiWindowHandle;
}

void Orv::setGuiWindowHandle(const WindowHandle& window)
{
    {
        const MutexLock lock(guiWindowLock);
        guiWindowHandle = window;
        updateEventLog();
    }
    midiEngine.setGuiWindowHandle(window);
    if (window) return;
    retroRecord.setFillListener({});
    orvMessageManager.postLearn({}, 0);
    orvMessageManager.postWatchMidiInputs(false);
    orvMessageManager.postWatchNotes(false);
}

void Orv::setDisplayListener(Display::DisplayListener* listener)
{
    display.getMessageManager().setListener(listener);
    const MutexLock lock(guiWindowLock);
    hasDisplayListener = listener != nullptr;
    updateEventLog();
}

/// What is played is logged while anything may show it.
void Orv::updateEventLog() { midiEngine.setEventLog(guiWindowHandle || hasDisplayListener ? &engineLog : nullptr); }

Gui::OrvGuiIF* Orv::createOrvGui(bool isVstPlugin)
{
    assertBackendThread();
    if (guiFactory == nullptr) return nullptr;
    return guiFactory(*this, {.settings = registrySettings,
                              .bank = bank,
                              .program = program,
                              .inputs = midiInputPorts,
                              .outputs = midiOutputPorts,
                              .screens = getScreenState(),
                              .isVstPlugin = isVstPlugin,
                              .hostOverrides = hostSettings ? std::optional(hostSettings->overrides) : std::nullopt});
}

void Orv::refreshGui()
{
    assertBackendThread();
    retroRecord.setFillListener(getGuiWindowHandle());
    notifyGui(GuiMessage::SETTINGS, registrySettings);
    notifyGui(GuiMessage::MIDI_INPUT_PORTS, midiInputPorts);
    notifyGui(GuiMessage::MIDI_OUTPUT_PORTS, midiOutputPorts);
    notifyGui(GuiMessage::BANK, bank);
    notifyGui(GuiMessage::PROGRAM, program, false);
    notifyGui(GuiMessage::SET_LIST, setList);
    if (recoveryResult != RecoveryResult::nothing) notifyGui(GuiMessage::RECOVERY, recoveryResult, recoveryPath);
    shownEdited = getEdited();
    notifyGui(GuiMessage::PROGRAM_EDITED, shownEdited.isCurrent, shownEdited.others);
    for (const ProgramSection* section : sections) {
        section->notifyGui();
        if (section->hasPresets()) notifyGuiOfPresets(section->getPresets(), true);
    }
    updateSectionPresets(Repeat::yes);
}

void Orv::showScreen(Screen screen, OnOffToggle::State state) const
{
    notifyGui(GuiMessage::SHOW_SCREEN, screen, state);
}

void Orv::moveWindow(const WindowMove& move) { notifyGui(GuiMessage::MOVE_WINDOW, move); }

void Orv::setWidgetFocus(const SelectControlType& select) { notifyGui(GuiMessage::SET_WIDGET_FOCUS, select); }

// --- what the inputs do

void Orv::executeFunction(const std::string& xml)
{
    assertBackendThread();
    const XmlDocument document(xml, XmlDocument::Source::text);
    if (const auto function = FunctionManagement::createFunctionFromXml(document.getRoot(), *this))
        function->execute();
    else
        WindowsLib::DbgStream() << xml << ": no function";
}

// --- events

void Orv::processMidiInputEvent(const OrvMidiMessage& event)
{
    assertBackendThread();
    if (isEnabled(midiInputPorts, event.getInput())) {
        displayMidiInputEvent(event);
        if (!swallows(event) && !takeProgramChange(event)) {
            midiEngine.followMidiInput(event);
            translate(event);
        }
    } else {
        WindowsLib::DbgStream() << "dropped " << event.getMidiMessage().toXmlString() << ", input "
                                << int{event.getInput()} << ": no such input, or not enabled";
    }
    settleMidiInput(event.getInput());
}

void Orv::translate(const OrvMidiMessage& event)
{
    const OrvMidiMessage received = MidiInput::MidiEventConfigurationMap::asReceived(event);
    for (const auto& translations : midiEngine.takeMidiTranslations(received, midiInputManager.getPublished()))
        midiInputManager.translate(*translations, received);
}

/// Sends a marker behind all that an event of the input made: first through the queue of this thread, then through that
/// of the engine.
void Orv::settleMidiInput(int input)
{
    if (midiEngine.isDeferring(input)) messageManagerMaster.post(OrvMessage::SETTLE_MIDI_INPUT(input));
}

/// Plays the note-offs of the notes that an input holds, before it is disabled or removed, on the path of its events;
/// while held notes are kept, its pedals go up as well. Until that is played, no event of that input is played at once.
void Orv::releaseHeldNotes(int input)
{
    if (!isEnabled(midiInputPorts, input)) return;
    learning.forgetMidiInput(input);
    updateRefusal();
    const MidiEngine::HeldNotes held = midiEngine.takeHeldNotes(input);
    held.forEach([&](int channel, int note) {
        translate(
            {{.type = MessageType::noteOff, .d1 = note, .d2 = RELEASE_VELOCITY, .channel = channel, .input = input}});
    });
    if (keepsNotes())
        held.forEachPedal([&](int channel, int controller) {
            translate({{.type = MessageType::controllerChange, .d1 = controller, .channel = channel, .input = input}});
        });
    settleMidiInput(input);
}

void Orv::playMidi(const OrvMidiMessage& event) { midiEngine.getMessageManager().postPlayMidi(event); }

void Orv::displayMidiInputEvent(const OrvMidiMessage& event) { display.getMessageManager().postMidiInputEvent(event); }

void Orv::displayMidiOutputEvent(const OrvMidiMessage& event)
{
    display.getMessageManager().postMidiOutputEvent(event);
}

// --- zones

void Orv::updateZones()
{
    assertBackendThread();
    std::vector<FunctionManagement::FunctionNoteSpan> spans;
    for (const ProgramSection* section : sections) {
        const std::size_t before = spans.size();
        section->getNoteSpans(spans);
        for (auto& span : std::span(spans).subspan(before)) span.sources = section->getNoteSource();
    }
    zoneManager.updateZones(spans);
}

// --- tempo, thru, reset

void Orv::changeTempo(const RelativeFixedValue& value, bool notify)
{
    assertBackendThread();
    const auto tempo = value.appliedTo(program.tempo);
    if (tempo < Program::LOWEST_TEMPO || tempo > Program::HIGHEST_TEMPO) return;
    program.tempo = static_cast<int>(tempo);
    midiEngine.getMessageManager().postSetTempo(program.tempo);
    if (notify) notifyGui(GuiMessage::PROGRAM, program, false);
}

void Orv::tapTempo()
{
    assertBackendThread();
    if (program.tempoSource != Program::INTERNAL_TEMPO_SOURCE) return;
    if (const auto tempo = taps.tap(monotonicMilliseconds()))
        changeTempo({.relative = false, .value = std::clamp(*tempo, Program::LOWEST_TEMPO, Program::HIGHEST_TEMPO)},
                    true);
}

void Orv::setTempoSource(int source, bool notify)
{
    assertBackendThread();
    const bool isInput = source >= 0 && static_cast<std::size_t>(source) < midiInputPorts.size();
    if (!isInput && source != Program::INTERNAL_TEMPO_SOURCE) return;
    program.tempoSource = source;
    midiEngine.getMessageManager().postSetTempoSource(source);
    if (notify) notifyGui(GuiMessage::PROGRAM, program, false);
}

void Orv::changeMidiThru(const OnOffToggle& value, bool notify)
{
    assertBackendThread();
    const bool on = value.appliedTo(registrySettings.getMidiThru());
    registrySettings.setMidiThru(on);
    midiEngine.getMessageManager().postSetMidiThru(on);
    if (notify) notifyGui(SETTING<Settings::MIDI_THRU>, on);
}

void Orv::resetOrv()
{
    assertBackendThread();
    midiEngine.sendHardReset();
    notifyGui(GuiMessage::ORV_RESET);
}

// --- rest

/// Checks twice: if nothing has changed between the two checks, and every worker was at rest in both, all were at rest
/// at the same time.
bool Orv::isAtRest() const
{
    const auto look = [this] {
        return std::array{messageManagerMaster.getWorker().rest(), midiEngine.getMessageManager().getWorker().rest(),
                          display.getMessageManager().getWorker().rest(), retroRecord.getWorker().rest(),
                          files.getWorker().rest()};
    };
    const auto first = look();
    return first == look() && std::ranges::all_of(first, &Worker::Rest::resting);
}
}  // namespace Backend
