#include <random>

#include "backend/messages/SettingMessages.h"
#include "backend/sections/computerinput/ComputerInputManager.h"
#include "backend/sections/controls/ControlManager.h"
#include "backend/sections/joystick/JoystickManager.h"
#include "backend/sections/midiinput/MidiInputManager.h"
#include "backend/sections/oscillators/OscManager.h"
#include "backend/sections/zones/ZoneManager.h"
#include "tests/core/EditStage.h"

using namespace Backend;

namespace
{
/// Edits records of every section at random, with the fields that other records of the section have.
class RestlessEditor : public EditStage
{
public:
    explicit RestlessEditor(unsigned seed) : random(seed)
    {
        load(ORVANE_PROGRAMS "/odd.prg");
        for (const Section& section : sections)
            for (const RecordId id : section.records.getRecordIds())
                addFields(section.name, section.records.writeRecord(id));
        for (int zone = 0; zone < 4; ++zone)
            pool["ComputerInput"].push_back({"<Function>", "<Function><Down><MidiNoteOn output='0' channel='0' zone='" +
                                                               std::to_string(zone) + "' note='C" +
                                                               std::to_string(zone + 2) + "'/></Down></Function>"});
        pool["Program"] = {{"name", "<\"Ä\" & 'b'>"}, {"name", ""},         {"tempo", "77"},
                           {"tempo", "999"},          {"tempoSource", "2"}, {"tempoSource", "-1"}};
        pool["Zones"] = {{"transpose", "3"}, {"transpose", "-12"}, {"transpose", "0"}};
    }

    void editAnything()
    {
        const std::size_t chosen = below(sections.size() + 1);
        if (below(2) == 0) ++lastGesture;
        if (chosen == sections.size())
            return edit({.section = "Program",
                         .name = "x",
                         .gesture = lastGesture,
                         .records = {{.fields = fields("Program")}}});
        const auto& [name, records] = sections[chosen];
        const auto ids = records.getRecordIds();
        Edit made{.section = name, .name = "x", .gesture = lastGesture};
        for (std::size_t count = below(3) + 1; count > 0 && !ids.empty(); --count)
            made.records.push_back(editOf(name, ids[below(ids.size())], ids[below(ids.size())]));
        edit(std::move(made));
    }

    std::size_t below(std::size_t limit) { return random() % limit; }

private:
    struct Section {
        const char* name;
        const Records& records;
    };

    void addFields(const std::string& section, const std::string& text)
    {
        const XmlElement record = rootOf(text);
        for (const auto& [name, value] : record.getAttributes()) pool[section].push_back({name, value});
        forEachElement(record, [&](const XmlElement& child) {
            pool[section].push_back({"<" + child.getTagName() + ">", child.toXml()});
        });
    }

    Fields fields(const std::string& section)
    {
        const auto& from = pool[section];
        return {from[below(from.size())], from[below(from.size())]};
    }

    RecordEdit editOf(const std::string& section, RecordId id, RecordId other)
    {
        using enum RecordEdit::Kind;
        const std::size_t kind = below(5);
        if (kind == 0) return {.kind = remove, .id = id};
        if (kind > 1) return {.id = id, .fields = fields(section)};
        RecordEdit added{.kind = add, .id = id, .fields = fields(section), .copyOf = other};
        if (section == "Controls") added.id = static_cast<RecordId>(Cell{number(5), number(5)}.getPacked());
        if (section == "ComputerInput")
            added.id = static_cast<RecordId>(Key{.keyCode = 'A' + number(8), .shift = below(2) == 0}.getPacked());
        if (section == "MidiInput") {
            const MidiInput::MidiEvent event{-1, static_cast<std::int8_t>(number(3)),
                                             MidiEngine::MidiMessage::fromXmlString("Controller Change,7")};
            added.id = static_cast<RecordId>(event.getPacked());
            added.fields = {
                {"input", "-1"}, {"channel", std::to_string(event.channel)}, {"midiEvent", "Controller Change,7"}};
        }
        return added;
    }
    int number(int limit) { return static_cast<int>(below(static_cast<std::size_t>(limit))); }

    std::minstd_rand random;
    std::map<std::string, Fields> pool;
    const std::vector<Section> sections{{"Layers", orv->getLayerManager()},
                                        {"Oscillators", orv->getOscManager()},
                                        {"Zones", orv->getZoneManager()},
                                        {"Controls", orv->getControlManager()},
                                        {"ComputerInput", orv->getComputerInputManager()},
                                        {"MidiInput", orv->getMidiInputManager()},
                                        {"Joystick", orv->getJoystickManager()}};
};
}  // namespace

TEST(Editing, UndoAndRedoOfAnyEditsEndWhereTheyBegan)
{
    for (unsigned seed = 1; seed <= 6; ++seed) {
        RestlessEditor stage(seed);
        const std::string before = stage.text();
        std::vector<std::string> states;
        for (int round = 0; round < 3; ++round) {
            for (int count = 0; count < 100; ++count) stage.editAnything();
            states = {stage.text()};
            while (!stage.undo().empty()) states.push_back(stage.text());
            ASSERT_GT(states.size(), 5u);
            ASSERT_EQ(states.back(), before) << "seed " << seed;
            EXPECT_TRUE(stage.marks().ends_with("as saved 0"));
            auto expected = states.rbegin();
            while (!stage.redo().empty()) ASSERT_EQ(stage.text(), *++expected) << "seed " << seed;
            ASSERT_EQ(stage.text(), states.front());
            for (std::size_t back = stage.below(40); back > 0; --back) stage.undo();
        }
        while (!stage.undo().empty()) {}
        EXPECT_EQ(stage.text(), before) << "seed " << seed;
    }
}

TEST(Editing, WhatFunctionsChangeMeanwhileIsKeptByEditsAndByUndo)
{
    constexpr int STEPS = 2000;
    EditStage stage;
    stage.loadSections(
        "<Oscillators><Oscillator speed='1000'/></Oscillators><Controls><Control cell='1,1' max='9999' "
        "type='knob'/></Controls><Layers><Layer/><Layer/></Layers>");
    const auto expect = [&](const std::string& edited, const std::string& functions) {
        const Layers::Layer& layer = *stage.orv->getLayerManager().getLayers().findElement(1);
        const auto& control = *stage.orv->getControlManager().getControls().findElement({1, 1});
        const auto& oscillator = stage.orv->getOscManager().getOscillators().getOscillators().front();
        EXPECT_EQ(std::to_string(layer.minVelocity) + " " + control.name + " " + std::to_string(oscillator.detail) +
                      " " + stage.orv->getProgram().name,
                  edited);
        EXPECT_EQ(std::to_string(layer.transpose.value) + " " + std::to_string(control.value) + " " +
                      std::to_string(oscillator.speed) + " " + std::to_string(stage.orv->getProgram().tempo),
                  functions);
    };
    auto& commands = stage.commands();
    const auto play = [&](int step) {
        commands.postExecuteFunction("<ChangeLayerTranspose type='1' value='+1'/>");
        commands.postExecuteFunction("<ChangeControl type='1,1' value='+1'/>");
        commands.postExecuteFunction("<ChangeOscSpeed type='0' value='" + std::to_string(1000 + step) + "'/>");
        commands.postExecuteFunction("<ChangeTempo value='" + std::to_string(100 + step % 50) + "'/>");
    };
    const auto edit = [&](int step) {
        const auto post = [&](const char* section, RecordId id, const char* field, int value) {
            commands.postEdit({.section = section,
                               .name = field,
                               .gesture = static_cast<std::uint32_t>(step / 50 + 1),
                               .records = {{.id = id, .fields = {{field, std::to_string(value)}}}}});
        };
        post("Layers", 1, "minVelocity", step % 100);
        post("Controls", 1 << 16 | 1, "name", step);
        post("Oscillators", 0, "detail", step % 30);
        post("Program", 0, "name", step);
    };
    stage.playWhile([&] {  // in turn, so that they are executed in turn
        for (int step = 1; step <= STEPS; ++step) {
            play(step);
            edit(step);
        }
    });
    stage.rest();
    expect("0 2000 20 2000", "2000 2000 3000 100");
    while (!stage.undo().empty()) {}
    expect("0  10 a", "2000 2000 3000 100");
    while (!stage.redo().empty()) {}
    expect("0 2000 20 2000", "2000 2000 3000 100");
}

TEST(Editing, AGestureIsOneStepAndTheMarkFollowsWhatIsSaved)
{
    EditStage stage;
    stage.loadProgram(stage.makeBank(2), 1);
    stage.marks();
    stage.set("Layers", 0, "transpose", "+1", 7);
    stage.set("Layers", 0, "transpose", "+2", 7);
    EXPECT_EQ(stage.marks(), "edited 0");
    stage.set("Layers", 0, "transpose", "+0", 7);
    EXPECT_EQ(stage.marks(), "as saved 0") << "dragged back";
    EXPECT_EQ(stage.undo(), "");

    stage.rename("Mine");
    stage.commands().postSaveToCurrentBank(1, NO_WINDOW);
    stage.rename("Other");
    stage.marks();
    EXPECT_EQ(stage.undo(), "name Other");
    EXPECT_EQ(stage.marks(), "as saved 0") << "saved in between";
    EXPECT_EQ(stage.undo(), "name Mine");
    EXPECT_EQ(stage.current(), "P1 1 101 2");
    EXPECT_EQ(stage.marks(), "edited 0");

    stage.commands().postSaveToCurrentBank(1, NO_WINDOW);
    stage.commands().postExecuteFunction("<ChangeTempo value='+10'/>");
    stage.commands().postTapTempo();
    stage.commands().postChangeProgramName("of a host");
    EXPECT_EQ(stage.marks(), "as saved 0") << "only edits mark";
}

TEST(Editing, WhatCannotBeEditedChangesNothingAndIsAcknowledged)
{
    EditStage stage;
    stage.loadProgram(stage.makeBank(2), 1);
    stage.marks();
    const std::string before = stage.text();
    stage.set("Layers", 5, "transpose", "+1");
    stage.set("Layers", -1, "transpose", "+1");
    stage.set("Layers", 0, "<Arpeggio>", "<Arpeggio>");
    stage.set("Zones", 3, "transpose", "1");
    stage.set("Nothing", 0, "name", "x");
    stage.edit({.section = "Zones", .name = "x", .records = {{.kind = RecordEdit::Kind::add, .id = 3}}});
    stage.edit({.section = "Layers", .name = "x", .preset = "missing"});
    stage.commands().postEdit(
        {.section = "Program", .name = "x", .program = 0, .records = {{.fields = {{"name", "x"}}}}});
    EXPECT_EQ(stage.received([](Message& message) -> std::string {
        return message.number == GuiMessage::EDIT_DONE ? "done" : "";
    }),
              "done, done, done, done, done, done, done, done");
    EXPECT_EQ(stage.text(), before);
}

TEST(Editing, ASectionIsMarkedWhereItDiffersFromThePresetThatWasLoadedOrSaved)
{
    EditStage stage;
    stage.loadSections("<Layers><Layer/></Layers>");
    auto& layers = stage.orv->getLayerMessageManager();
    const auto shown = [&] {
        stage.rest();
        return stage.received([](Message& message) {
            std::string preset;
            const bool isOfLayers = message.wparam == PresetSections::indexOf(PresetSections::LAYERS);
            if (message.number == GuiMessage::SECTION_PRESET && isOfLayers)
                GuiMessage::SECTION_PRESET.deliver(message, [&](auto, bool isEdited, const std::string& name) {
                    preset = '"' + name + (isEdited ? "\" edited" : "\"");
                });
            return preset;
        });
    };
    const auto edit = [&](const std::string& transpose) { stage.set("Layers", 0, "transpose", transpose); };
    const auto undone = [&] { return stage.commands().postUndo(++stage.lastGesture), shown(); };
    shown();
    layers.postSavePreset("A", {});
    EXPECT_EQ(shown(), "\"A\"");
    layers.postSavePreset("one layer", {0});
    stage.rename("another section");
    EXPECT_EQ(shown(), "");
    edit("+1");
    EXPECT_EQ(shown(), "\"A\" edited");
    EXPECT_EQ(undone(), "\"A\"");
    stage.commands().postRedo(++stage.lastGesture);
    EXPECT_EQ(shown(), "\"A\" edited");
    layers.postSavePreset("B", {});
    EXPECT_EQ(shown(), "\"B\"");
    stage.edit({.section = "Layers", .name = "load", .gesture = ++stage.lastGesture, .preset = "A"});
    EXPECT_EQ(shown(), "\"A\"");
    EXPECT_EQ(undone(), "\"B\"");
    layers.postSavePreset("A", {});
    EXPECT_EQ(shown(), "\"A\"");
    EXPECT_EQ(undone(), "\"A\" edited") << "which has other layers now";
    layers.postRenamePreset("A", "Z");
    EXPECT_EQ(shown(), "\"Z\" edited");
    layers.postDeletePreset("Z");
    EXPECT_EQ(shown(), "\"\" edited");
    stage.commands().postExecuteFunction("<LoadLayerPreset preset='B'/>");
    EXPECT_EQ(shown(), "\"B\"");
    stage.loadSections("<Layers/>");
    EXPECT_EQ(shown(), "\"\"");
}

TEST(Editing, APresetOfKeysIsAStepWithItsName)
{
    EditStage stage;
    auto& keys = stage.orv->getComputerInputManager();
    stage.loadSections("<ComputerInput><Key id='A'/></ComputerInput>");
    stage.commands().postExecuteFunction("<ChangeTempo value='99'/>");
    const std::string before = stage.text();
    std::filesystem::create_directories(keys.getPresets().getFolder());
    std::ofstream(keys.getPresets().getPresetPath("Mine"))
        << "<ComputerInput useKeyUpMod='true'><Key id='B'/></ComputerInput>";
    stage.edit({.section = "ComputerInput", .name = "load Mine", .gesture = 1, .preset = "Mine"});
    const std::string loaded = stage.text();
    EXPECT_NE(loaded.find("preset=\"Mine\""), std::string::npos);
    EXPECT_EQ(stage.undo(), "load Mine");
    EXPECT_EQ(stage.text(), before);
    EXPECT_EQ(keys.getCurrentPreset(), "");
    EXPECT_EQ(stage.redo(), "load Mine");
    EXPECT_EQ(stage.text(), loaded);
}
