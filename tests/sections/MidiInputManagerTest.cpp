#include "backend/sections/midiinput/MidiInputManager.h"

#include "backend/bindings/translations/TranslationFactories.h"
#include "backend/model/Program.h"
#include "backend/model/WindowMove.h"
#include "backend/sections/zones/ZoneManager.h"
#include "tests/sections/SectionStage.h"

using namespace Backend;
using namespace Backend::MidiInput;

namespace
{
struct InputStage : SectionStage<MidiInputManager> {
    InputStage() : SectionStage(&OrvIF::getMidiInputManager) {}

    MidiInputMessageManager& messages() { return section.getMessageManager(); }
    /// A controller of the first input.
    void turn(int number, int value) { arrive(controller(number, value).channel(0).input(0)); }
};

std::string entry(const std::string& event, const std::string& translations)
{
    return "<MidiEvent midiEvent='" + event + "'>" + translations + "</MidiEvent>";
}

std::string to(const std::string& element) { return "<Translation><" + element + "/></Translation>"; }

MidiEventConfiguration nothingFor(int note)
{
    return MidiEventConfiguration(MidiEvent{-1, -1, MidiEngine::MidiMessage(MessageType::noteOn, note)});
}
}  // namespace

TEST(MidiInput, GivesTheZonesWhatItsTranslationsPlay)
{
    InputStage stage;
    stage.load(entry("Note On,60", to("Unchanged zone='2' D1='48'")) +
               entry("Note On,61", to("MidiNoteOn zone='2' D1='D1 +6'") + to("MidiNoteOn zone='0'")));
    EXPECT_EQ(stage.zones(), "0 C#4-C#4, 2 C3-G4");
    EXPECT_EQ(stage.orv->getZoneManager().getZones().findElement(2)->sources,
              FunctionManagement::NoteSource::MIDI_INPUTS);
    stage.messages().postSetEventConfigurations({nothingFor(61)}, false);
    stage.rest();
    EXPECT_EQ(stage.zones(), "2 C3-C3");
    stage.section.setDefaults();
    EXPECT_EQ(stage.zones(), "");
}

TEST(MidiInput, TakesItsNumbersFromTheEvent)
{
    InputStage stage;
    stage.load(entry("Controller Change,1", to("ChangeTempo")) +
               entry("Controller Change,2", to("ChangeTempo value='+5'")) +
               entry("Controller Change,3", to("ChangeTempo value='D2 +100'")));
    const auto tempoAfter = [&](int number, int value) {
        stage.turn(number, value);
        return stage.orv->getTempo();
    };
    EXPECT_EQ(tempoAfter(1, 90), 90);
    EXPECT_EQ(tempoAfter(2, 90), 95);
    EXPECT_EQ(tempoAfter(3, 27), 127);
    EXPECT_EQ(tempoAfter(1, 3), 127) << "too slow";

    const auto translation = TranslationManagement::createTranslation("ResetOrv");
    translation->execute(noteOn(60).channel(0).input(0));  // without a backend it does nothing
    EXPECT_EQ(translation->clone()->getType(), "ResetOrv");
}

TEST(MidiInputWindow, IsNotifiedOfEveryChangeAndAskedToMove)
{
    InputStage stage;
    stage.openWindow();
    WindowMove move;
    const auto received = [&] {
        return stage.received([&](Message& message) -> std::string {
            if (const auto* asked = message.payload.get<WindowMove>()) move = *asked;
            if (const auto* map = message.payload.get<MidiEventConfigurationMap>())
                return "all " + std::to_string(map->size());
            if (const auto* list = message.payload.get<std::vector<MidiEventConfiguration>>())
                return std::to_string(list->size());
            return message.number == GuiMessage::ZONES ? "" : TestWindow::number(message);
        });
    };
    stage.load(entry("Note On,60", to("DoNothing")) + entry("Note On,61", to("DoNothing")));
    EXPECT_EQ(received(), "all 2");
    stage.messages().postSetEventConfigurations({nothingFor(61)}, true);
    EXPECT_EQ(received(), "1");
    EXPECT_EQ(stage.orv->getMidiInputConfiguration().size(), 1u);
    stage.messages().postSetEventConfigurations({nothingFor(62)}, false);
    EXPECT_EQ(received(), "") << "the window has it already";

    stage.load(entry("Controller Change,1", to("MoveWindowTranslation x='D1 +200' y='-10'")) +
               entry("Controller Change,2", to("MoveWindowTranslation y='300'")));
    stage.turn(1, 64);
    received();
    EXPECT_EQ(move, (WindowMove{{{false, 201}, WindowCoordinate::Unit::dataByte}, {{true, -10}}}));
    EXPECT_EQ(move.x.inPixels(1920), (RelativeFixedValue{false, 1920})) << "no further than the right edge";
    EXPECT_EQ(move.y.inPixels(1080), (RelativeFixedValue{true, -10}));
    stage.turn(2, 64);
    received();
    EXPECT_EQ(move.x.inPixels(1270), (RelativeFixedValue{false, 640}));
    EXPECT_EQ(move.y, (WindowCoordinate{{false, 300}}));
}
