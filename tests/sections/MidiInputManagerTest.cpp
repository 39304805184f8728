#include "backend/sections/midiinput/MidiInputManager.h"

#include <gtest/gtest.h>

#include "backend/bindings/translations/TranslationFactories.h"
#include "backend/messages/GuiMessages.h"
#include "backend/model/Program.h"
#include "backend/model/WindowMove.h"
#include "backend/sections/zones/ZoneManager.h"
#include "backend/xml/XmlDocument.h"
#include "tests/stage/Stage.h"
#include "tests/stage/TemporaryFolder.h"

using namespace Backend;
using namespace Backend::MidiInput;
using MidiEngine::MessageType;
using MidiEngine::MidiMessage;

namespace
{
/// The backend at rest: its translations may be called from here.
struct InputStage : Stage {
    MidiInputManager& input() { return orv->getMidiInputManager(); }

    void load(const std::string& events)
    {
        const std::string text = "<MidiInput>" + events + "</MidiInput>";
        input().loadSection(XmlDocument(text, XmlDocument::Source::text).getRoot());
        rest();
    }

    /// A controller of the first input.
    void turn(int controller, int value) { midi(0, MessageType::controllerChange, controller, value, 0); }

    /// What each zone plays: "0:60-72".
    std::string zones()
    {
        std::string text;
        const auto iterator = orv->getZoneManager().getZones().createIterator();
        while (const Zones::Zone* zone = iterator->next())
            text += (text.empty() ? "" : " ") + std::to_string(zone->id) + ":" +
                    std::to_string(zone->lowNote.getNumber()) + "-" + std::to_string(zone->highNote.getNumber());
        return text;
    }
};

std::string entry(const std::string& event, const std::string& translations)
{
    return "<MidiEvent midiEvent='" + event + "'>" + translations + "</MidiEvent>";
}

std::string to(const std::string& element) { return "<Translation><" + element + "/></Translation>"; }

MidiEvent note(int number) { return {-1, -1, MidiMessage(MessageType::noteOn, number)}; }
}  // namespace

TEST(MidiInput, RunsAnEntryToItsEndAlsoWhenItReplacesItself)
{
    InputStage stage;
    stage.load(entry("Note On,60", to("DoNothing")));
    stage.input().savePreset("Silent", {});
    stage.load(entry("Controller Change,20",
                     to("LoadMidiInputPreset preset='Silent'") + to("MidiProgramChange D1='7' D2='0'")));
    stage.turn(20, 127);
    stage.turn(20, 1);
    stage.press("C4");
    EXPECT_EQ(stage.played(), "Program Change 7 0, Controller Change 20 1") << "by then the preset is in force";

    TemporaryFolder folder;
    folder.write("a.bnk",
                 "<Bank><Program><MidiInput>" +
                     entry("Program Change", to("ChangeProgram type='D1'") + to("MidiChannelPressure")) +
                     "</MidiInput><Layers><Layer/></Layers></Program><Program name='One'><Layers><Layer/></Layers>"
                     "</Program></Bank>");
    stage.commands().postLoadBank((folder / "a.bnk").string());
    stage.rest();
    stage.midi(0, MessageType::programChange, 1, 0, 0);
    EXPECT_EQ(stage.orv->getProgram().name, "One");
    EXPECT_EQ(stage.played(), "Channel Pressure 1 0");
    EXPECT_EQ(stage.input().getConfiguration().size(), 0u) << "a program without the section has no translations";
}

TEST(MidiInput, ReleasesWhatAnInputHoldsOnThePathOfItsNotes)
{
    InputStage stage;
    stage.load(entry("Note On,60", to("Unchanged D1='D1 +12'")) + entry("Note Off,60", to("Unchanged D1='D1 +12'")));
    stage.press("C4");
    stage.press("D4");
    stage.press("E4");
    stage.press("E4", 0);
    EXPECT_EQ(stage.played(), "C5 on, D4 on, E4 on, E4 off");
    stage.commands().postEnableMidiInput(0, false);
    EXPECT_EQ(stage.played(), "C5 off, D4 off");
}

TEST(MidiInput, GivesTheZonesWhatItsTranslationsPlay)
{
    InputStage stage;
    stage.load(entry("Note On,60", to("Unchanged zone='2' D1='48'")) +
               entry("Note On,61", to("MidiNoteOn zone='2' D1='D1 +6'") + to("MidiNoteOn zone='0'")));
    EXPECT_EQ(stage.zones(), "0:61-61 2:48-67");
    stage.orv->getMidiInputMessageManager().postSetEventConfigurations({MidiEventConfiguration(note(61))}, false);
    stage.rest();
    EXPECT_EQ(stage.zones(), "2:48-48");
    stage.input().setDefaults();
    EXPECT_EQ(stage.zones(), "");
}

TEST(MidiInput, TakesItsNumbersFromTheEvent)
{
    InputStage stage;
    stage.load(entry("Controller Change,1", to("ChangeTempo")) +
               entry("Controller Change,2", to("ChangeTempo value='+5'")) +
               entry("Controller Change,3", to("ChangeTempo value='D2 +100'")));
    const auto tempoAfter = [&](int controller, int value) {
        stage.turn(controller, value);
        return stage.orv->getTempo();
    };
    EXPECT_EQ(tempoAfter(1, 90), 90);
    EXPECT_EQ(tempoAfter(2, 90), 95);
    EXPECT_EQ(tempoAfter(3, 27), 127);
    EXPECT_EQ(tempoAfter(1, 3), 127) << "too slow";
}

TEST(MidiInput, WithoutABackendDoesNothing)
{
    const auto translation = TranslationManagement::createTranslation("ResetOrv");
    translation->execute(noteOn(60).channel(0).input(0));
    EXPECT_EQ(translation->clone()->getType(), "ResetOrv");
}

TEST(MidiInputWindow, IsNotifiedOfEveryChangeAndAskedToMove)
{
    InputStage stage;
    const auto window = std::make_shared<MessageQueue>(64);
    stage.orv->setGuiWindowHandle(WindowHandle(window));
    std::vector<unsigned> received;
    std::size_t configurations = 0;
    WindowMove move;
    const auto collect = [&] {
        stage.rest();
        received.clear();
        while (window->handleNext([&](Message& message) {
            if (message.number != GuiMessage::ZONES) received.push_back(message.number);
            if (auto* map = message.payload.get<MidiEventConfigurationMap>()) configurations = map->size();
            if (auto* list = message.payload.get<std::vector<MidiEventConfiguration>>()) configurations = list->size();
            if (auto* asked = message.payload.get<WindowMove>()) move = *asked;
        })) {}
        return received;
    };
    stage.load(entry("Note On,60", to("DoNothing")) + entry("Note On,61", to("DoNothing")));
    EXPECT_EQ(collect(), std::vector<unsigned>{GuiMessage::MIDI_INPUT});
    EXPECT_EQ(configurations, 2u);
    auto& messages = stage.orv->getMidiInputMessageManager();
    messages.postSetEventConfigurations({MidiEventConfiguration(note(62))}, true);
    EXPECT_EQ(collect(), std::vector<unsigned>{GuiMessage::MIDI_EVENT_CONFIGURATIONS});
    EXPECT_EQ(configurations, 1u);
    EXPECT_EQ(stage.orv->getMidiInputConfiguration().size(), 3u);
    messages.postSetEventConfigurations({MidiEventConfiguration(note(63))}, false);
    EXPECT_TRUE(collect().empty()) << "it knows";

    stage.load(entry("Controller Change,1", to("MoveWindowTranslation x='D1 +200' y='-10'")) +
               entry("Controller Change,2", to("MoveWindowTranslation y='300'")));
    stage.turn(1, 64);
    collect();
    EXPECT_EQ(move, (WindowMove{{{false, 201}, WindowCoordinate::Unit::dataByte}, {{true, -10}}}));
    EXPECT_EQ(move.x.inPixels(1920), (RelativeFixedValue{false, 1920})) << "no further than the right edge";
    EXPECT_EQ(move.y.inPixels(1080), (RelativeFixedValue{true, -10}));
    stage.turn(2, 64);
    collect();
    EXPECT_EQ(move.x.inPixels(1270), (RelativeFixedValue{false, 640}));
    EXPECT_EQ(move.y, (WindowCoordinate{{false, 300}}));
}
