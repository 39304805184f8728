// What all sections of a program have in common: presets, and what they write to be merged.

#include "backend/sections/layers/LayerManager.h"
#include "backend/sections/midiinput/MidiInputManager.h"
#include "backend/sections/oscillators/OscManager.h"
#include "tests/sections/ControlStage.h"
#include "tests/sections/JoystickStage.h"
#include "tests/sections/KeyStage.h"

using namespace Backend;

namespace
{
/// Presets of a section with one of two contents, and one of `some` of its items where a preset need not be whole.
template <class Manager, class... Id>
void expectPresets(Stage& stage, Manager& section, const std::string& first, const std::string& second,
                   const Id&... some)
{
    SCOPED_TRACE(section.getTag());
    auto& messages = section.getMessageManager();
    const auto text = [&] {
        stage.rest();
        return writtenBy([&](std::ostream& out) { section.writeInProgram(out, 0); });
    };
    const auto load = [&](const std::string& content) {
        const std::string tag = section.getTag();
        section.loadSection(rootOf("<" + tag + ">" + content + "</" + tag + ">"));
        return text();
    };
    const std::string expected = load(first);
    for (const char* name : {"broken", "deleted", "kept", "renamed"})
        messages.postSavePreset(name, std::vector<Id>()...);
    if constexpr (sizeof...(Id) > 0) messages.postSavePreset("some", std::vector{some}...);
    messages.postRenamePreset("renamed", "new name");
    messages.postDeletePreset("deleted");
    stage.rest();
    std::ofstream(section.getPresets().getPresetPath("broken")) << "<" << section.getTag();
    std::ofstream(section.getPresets().getPresetPath("of another section")) << "<Other/>";
    const auto list = joined(
        section.getPresets().getList().getEntries(),
        [](const PresetEntry& entry) { return entry.name + (entry.merge ? "+" : ""); }, ",");
    EXPECT_EQ(list, sizeof...(Id) > 0 ? "broken,kept,new name,some+" : "broken,kept,new name");

    const std::string before = load(second);
    const auto afterPreset = [&](const std::string& name) {
        load(second);
        messages.postLoadPreset(name);
        return text();
    };
    for (const char* name : {"renamed", "deleted", "broken", "of another section", "missing", "../kept", ""})
        EXPECT_EQ(afterPreset(name), before) << name;
    EXPECT_NE(afterPreset("new name"), before);
    const std::string kept = afterPreset("kept");
    EXPECT_TRUE(kept == expected || kept.find("preset=\"kept\"") != std::string::npos) << kept;
}
}  // namespace

TEST(Sections, WriteSomeOfTheirItemsToBeMerged)
{
    SectionStage stage(&OrvIF::getLayerManager);
    stage.load("<Layer channel='0'/><Layer channel='1'/><Layer channel='2'/>");
    stage.loadElement(stage.writtenOf<Layers::LayerId>({2, 0}));
    EXPECT_EQ(joined(stage.section.getLayers().getLayers(),
                     [](const auto& layer) { return std::to_string(layer.id) + ":" + std::to_string(layer.channel); }),
              "0:0 1:1 2:2 3:0 4:2")
        << "in the order of the list";

    ControlStage controls({fader({1, 2}, cc(1)), fader({3, 4}, cc(2))});
    EXPECT_TRUE(controls.writtenOf<Cell>({{3, 4}, {4, 4}}).starts_with("<Controls merge='true'><Control cell='3,4' "));
    controls.load("<Control cell='3,4'/><Control cell='5,5'/>", "merge='true'");
    EXPECT_EQ(controls.section.getControls().size(), 3u);

    KeyStage keys;
    keys.load(noteKey("A", "C4") + noteKey("B", "D4"));
    const std::string unbound =
        "<ComputerInput merge='true' useKeyUpMod='false'><Key id='Shift F1' global='true'></Key>";
    const std::string some = keys.writtenOf<Key>({Key::fromXmlString("Shift F1"), Key::fromXmlString("B")});
    EXPECT_TRUE(some.starts_with(unbound + "<Key id='B' global='true'><Function "))
        << "an unbound key for a missing one";
    EXPECT_EQ(some.find("id='A'"), std::string::npos);
}

TEST(SectionPresets, AreSavedLoadedRenamedAndDeletedByMessage)
{
    Stage stage;
    OrvIF& orv = *stage.orv;
    const std::string bend = "><Function midiEvent='Pitch Bend'/></Axis>";
    const std::string nothing = "'><Translation><DoNothing/></Translation></MidiEvent>";
    const MidiInput::MidiEvent c4{-1, -1, MidiMessage(MidiEngine::Note(60))};
    expectPresets(stage, orv.getOscManager(), "<Oscillator speed='7'/>", "<Oscillator/><Oscillator/>", 0);
    expectPresets(stage, orv.getJoystickManager(), "<Axis joystick='0' axis='X'" + bend,
                  "<Axis joystick='1' axis='Y'" + bend);
    expectPresets(stage, orv.getComputerInputManager(), "<Key id='A'/>", "<Key id='B'/>", Key::fromXmlString("A"));
    expectPresets(stage, orv.getMidiInputManager(), "<MidiEvent midiEvent='Note On,60" + nothing,
                  "<MidiEvent midiEvent='Note On,61" + nothing, c4);
    expectPresets(stage, orv.getControlManager(), "<Control cell='1,2'/>", "<Control cell='3,4'/>", Cell{1, 2});
    expectPresets(stage, orv.getLayerManager(), "<Layer channel='3'/>", "<Layer/><Layer/>", 0);
}

TEST(Defaults, OfTheKeysAndTheControlsAreAlsoInTheDefaultBank)
{
    const std::string content = ORVANE_CONTENT "/Default/";
    const auto defaultPreset = [&](const std::string& folder) {
        const std::string text = fileText(content + folder + "/000 - Default.pst");
        EXPECT_TRUE(text.starts_with(XML_HEAD)) << folder;
        std::string inBank;
        std::istringstream lines(text.substr(XML_HEAD.size()));
        for (std::string line; std::getline(lines, line);) inBank += "\t" + line + "\n";
        EXPECT_NE(fileText(content + "Banks/Default Bank.bnk").find(inBank), std::string::npos) << folder;
        return lines.str();
    };
    ControlStage controls;
    const std::string controlsXml = defaultPreset("Control Presets");
    controls.loadElement(controlsXml);
    EXPECT_EQ(controls.written(), flat(controlsXml));

    KeyStage stage;
    const XmlElement keys = rootOf(defaultPreset("Computer Input Presets"));
    EXPECT_EQ(keys.getChildCount(), 75);
    stage.keys().loadSection(keys);
    EXPECT_EQ(stage.keys().getKeys().size(), 75u) << "no key occurs twice";
    std::size_t functions = 0;
    std::string unbound;
    const auto iterator = stage.keys().getKeys().createIterator();
    while (const auto* key = iterator->next()) {
        EXPECT_TRUE(key->global);
        if (key->isEmpty()) unbound += key->key.toXmlString();
        key->forEachFunction([&](const auto&) { ++functions; });
    }
    EXPECT_EQ(unbound, "1");
    EXPECT_EQ(functions, 2u * 37 + 37 + 4) << "two a note, one each of the others, and four have one for release";
}
