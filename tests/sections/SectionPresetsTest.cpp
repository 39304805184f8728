#include <gtest/gtest.h>

#include <functional>

#include "backend/sections/computerinput/ComputerInputManager.h"
#include "backend/sections/controls/ControlManager.h"
#include "backend/sections/joystick/JoystickManager.h"
#include "backend/sections/layers/LayerManager.h"
#include "backend/sections/midiinput/MidiInputManager.h"
#include "backend/sections/oscillators/OscManager.h"
#include "tests/stage/Stage.h"

using namespace Backend;

namespace
{
using Name = const std::string&;

/// A section as the messages about its presets see it.
struct TestedSection {
    const char* root;
    const char* first;  ///< two contents
    const char* second;
    PresetManager& presets;
    std::function<void(Name)> save, load, remove;
    std::function<void(Name, Name)> rename;
    std::function<void(Name)> saveSome;  ///< saves single elements; null where a preset is always whole
};

template <class Manager, class Messages, class... Ids>
TestedSection section(const char* root, const char* first, const char* second, Manager& manager, Messages& messages,
                Ids... some)
{
    return {.root = root,
            .first = first,
            .second = second,
            .presets = manager.getPresets(),
            .save =
                [&](Name name) {
                    if constexpr (sizeof...(Ids) > 0)
                        messages.postSavePreset(name, {});
                    else
                        messages.postSavePreset(name);
                },
            .load = [&](Name name) { messages.postLoadPreset(name); },
            .remove = [&](Name name) { messages.postDeletePreset(name); },
            .rename = [&](Name from, Name to) { messages.postRenamePreset(from, to); },
            .saveSome =
                [&, some...](Name name) {
                    if constexpr (sizeof...(Ids) > 0) messages.postSavePreset(name, {some...});
                }};
}

struct PresetStage : Stage {
    std::vector<TestedSection> sections()
    {
        return {section("Oscillators", "<Oscillator speed='7'/>", "<Oscillator/><Oscillator/>", orv->getOscManager(),
                        orv->getOscMessageManager(), 0),
                section("Joystick", "<Axis joystick='0' axis='X'><Function midiEvent='Pitch Bend'/></Axis>",
                        "<Axis joystick='1' axis='Y'><Function midiEvent='Pitch Bend'/></Axis>",
                        orv->getJoystickManager(), orv->getJoystickMessageManager()),
                section("ComputerInput", "<Key id='A'/>", "<Key id='B'/>", orv->getComputerInputManager(),
                        orv->getComputerInputMessageManager(), Key::fromXmlString("A")),
                section("MidiInput",
                        "<MidiEvent midiEvent='Note On,60'><Translation><DoNothing/></Translation></MidiEvent>",
                        "<MidiEvent midiEvent='Note On,61'><Translation><DoNothing/></Translation></MidiEvent>",
                        orv->getMidiInputManager(), orv->getMidiInputMessageManager(),
                        MidiInput::MidiEvent{-1, -1, MidiEngine::MidiMessage(MidiEngine::Note(60))}),
                section("Controls", "<Control cell='1,2'/>", "<Control cell='3,4'/>", orv->getControlManager(),
                        orv->getControlMessageManager(), Cell{1, 2}),
                section("Layers", "<Layer channel='3'/>", "<Layer/><Layer/>", orv->getLayerManager(),
                        orv->getLayerMessageManager(), 0)};
    }

    void setContent(const TestedSection& section, const char* content)
    {
        const std::string element = std::string("<") + section.root + ">" + content + "</" + section.root + ">";
        commands().postLoadProgramFromString("<File><Program>" + element + "</Program></File>", 0);
        rest();
    }
    /// The section as a program stores it.
    std::string content(const TestedSection& section)
    {
        rest();
        const std::string program = commands().sendGetProgramAsString();
        const auto begin = program.find(std::string("<") + section.root);
        return program.substr(begin, program.find(std::string("</") + section.root, begin) - begin);
    }
    /// Loads a preset over the second content; whether that changed anything.
    bool changes(const TestedSection& section, Name preset)
    {
        setContent(section, section.second);
        const std::string before = content(section);
        section.load(preset);
        return content(section) != before;
    }
};
}  // namespace

TEST(SectionPresets, AreSavedLoadedRenamedAndDeletedByMessage)
{
    PresetStage stage;
    for (const TestedSection& section : stage.sections()) {
        SCOPED_TRACE(section.root);
        stage.setContent(section, section.first);
        const std::string first = stage.content(section);
        for (const char* name : {"kept", "renamed", "deleted", "broken"}) section.save(name);
        section.saveSome("some");
        section.rename("renamed", "new name");
        section.remove("deleted");
        stage.rest();
        std::ofstream(section.presets.getPresetPath("broken")) << "<" << section.root;
        std::ofstream(section.presets.getPresetPath("of another section")) << "<Other/>";

        for (const char* name : {"renamed", "deleted", "broken", "of another section", "missing", "../kept", ""})
            EXPECT_FALSE(stage.changes(section, name)) << name;
        EXPECT_TRUE(stage.changes(section, "new name"));
        EXPECT_TRUE(stage.changes(section, "kept"));
        const std::string loaded = stage.content(section);
        EXPECT_TRUE(loaded == first || loaded.find("preset=\"kept\"") != std::string::npos) << loaded;

        const PresetList& list = section.presets.getList();
        EXPECT_EQ(list.find("deleted"), nullptr);
        EXPECT_EQ(list.find("renamed"), nullptr);
        ASSERT_NE(list.find("new name"), nullptr);
        EXPECT_FALSE(list.find("new name")->merge);
        if (const PresetEntry* some = list.find("some")) {
            EXPECT_TRUE(some->merge);
        } else {
            EXPECT_STREQ(section.root, "Joystick") << "which is always saved whole";
        }
    }
}
