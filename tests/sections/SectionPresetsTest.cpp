#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <sstream>

#include "backend/sections/computerinput/ComputerInputManager.h"
#include "backend/sections/controls/ControlManager.h"
#include "backend/sections/joystick/JoystickManager.h"
#include "backend/sections/layers/LayerManager.h"
#include "backend/sections/midiinput/MidiInputManager.h"
#include "backend/sections/oscillators/OscManager.h"
#include "backend/xml/XmlDocument.h"
#include "tests/stage/Stage.h"

using namespace Backend;

namespace
{
// Each section: its manager and messages, the function that loads its presets, three items of which the first has an id
// of its own, and the element name of another section.

struct Layers {
    static constexpr auto MANAGER = &OrvIF::getLayerManager;
    static constexpr auto MESSAGES = &OrvIF::getLayerMessageManager;
    static constexpr const char *FUNCTION = "LoadLayerPreset", *OTHER = "Oscillators";
    static constexpr const char *ITEM = "Layer", *ITEMS[] = {"channel='3'", "mute='true'", "mono='true'"};
    static std::vector<Backend::Layers::LayerId> first() { return {0}; }
};
struct Oscillators {
    static constexpr auto MANAGER = &OrvIF::getOscManager;
    static constexpr auto MESSAGES = &OrvIF::getOscMessageManager;
    static constexpr const char *FUNCTION = "LoadOscillatorPreset", *OTHER = "Layers";
    static constexpr const char *ITEM = "Oscillator", *ITEMS[] = {"speed='50'", "speed='60'", "speed='70'"};
    static std::vector<Backend::Oscillators::OscId> first() { return {0}; }
};
struct Controls {
    static constexpr auto MANAGER = &OrvIF::getControlManager;
    static constexpr auto MESSAGES = &OrvIF::getControlMessageManager;
    static constexpr const char *FUNCTION = "LoadControlPreset", *OTHER = "MidiInput";
    static constexpr const char *ITEM = "Control", *ITEMS[] = {"cell='0,1'", "cell='0,2'", "cell='5,5'"};
    static std::vector<Cell> first() { return {{0, 1}}; }
};
struct Keys {
    static constexpr auto MANAGER = &OrvIF::getComputerInputManager;
    static constexpr auto MESSAGES = &OrvIF::getComputerInputMessageManager;
    static constexpr const char *FUNCTION = "LoadComputerInputPreset", *OTHER = "Joystick";
    static constexpr const char *ITEM = "Key", *ITEMS[] = {"id='A'", "id='B'", "id='C'"};
    static std::vector<Key> first() { return {Key::fromXmlString("A")}; }
};
struct MidiEvents {
    static constexpr auto MANAGER = &OrvIF::getMidiInputManager;
    static constexpr auto MESSAGES = &OrvIF::getMidiInputMessageManager;
    static constexpr const char *FUNCTION = "LoadMidiInputPreset", *OTHER = "Controls";
    static constexpr const char *ITEM = "MidiEvent",
                                *ITEMS[] = {"midiEvent='Note On,60'", "midiEvent='Note On,61'", "midiEvent='Note On'"};
    static std::vector<MidiInput::MidiEvent> first()
    {
        return {{-1, -1, MidiEngine::MidiMessage(MidiEngine::MessageType::noteOn, 60)}};
    }
};
struct Joysticks {
    static constexpr auto MANAGER = &OrvIF::getJoystickManager;
    static constexpr auto MESSAGES = &OrvIF::getJoystickMessageManager;
    static constexpr const char *FUNCTION = "LoadJoystickInputPreset", *OTHER = "ComputerInput";
    static constexpr const char *ITEM = "Button", *ITEMS[] = {"joystick='0' button='1'", "joystick='0' button='2'",
                                                              "joystick='1' button='3'"};
};

template <class Of>
struct SectionPresets : testing::Test {
    static constexpr bool CAN_BE_MERGED = !std::is_same_v<Of, Joysticks>;

    Stage stage;

    auto& section() { return (stage.orv.get()->*Of::MANAGER)(); }
    auto& messages() { return (stage.orv.get()->*Of::MESSAGES)(); }
    PresetManager& presets() { return section().getPresets(); }

    /// The section's element with some of the items, each of which does something.
    std::string element(std::initializer_list<int> items)
    {
        const std::string content =
            "<Translation><DoNothing/></Translation><Function><Down><ResetOrv/></Down></Function>";
        std::string text = "<" + std::string(section().getTag()) + ">";
        for (const int item : items)
            text += "<" + std::string(Of::ITEM) + " " + Of::ITEMS[item] + ">" + content + "</" + Of::ITEM + ">";
        return text + "</" + section().getTag() + ">";
    }
    void load(std::initializer_list<int> items)
    {
        section().loadSection(XmlDocument(element(items), XmlDocument::Source::text).getRoot());
        stage.rest();
    }
    void loadPreset(const std::string& name)
    {
        stage.commands().postExecuteFunction("<" + std::string(Of::FUNCTION) + " preset='" + name + "'/>");
        stage.rest();
    }
    void save(const std::string& name, bool onlyFirst = false)
    {
        if constexpr (CAN_BE_MERGED)
            messages().postSavePreset(name, onlyFirst ? Of::first() : decltype(Of::first()){});
        else
            messages().postSavePreset(name);
        stage.rest();
    }
    void write(const std::string& name, const std::string& text)
    {
        std::ofstream(presets().getPresetPath(name)) << text;
    }
    std::string written()
    {
        std::ostringstream out;
        section().writeXml(out, 0, {});
        return out.str();
    }
    std::string listed()
    {
        std::string text;
        for (const PresetEntry& entry : presets().getList().getEntries())
            text += entry.name + (entry.merge ? "+ " : " ");
        return text;
    }
};

using AllSections = testing::Types<Layers, Oscillators, Controls, Keys, MidiEvents, Joysticks>;
TYPED_TEST_SUITE(SectionPresets, AllSections);
}  // namespace

TYPED_TEST(SectionPresets, AreSavedLoadedMergedRenamedAndDeleted)
{
    this->load({0, 1});
    const std::string all = this->written();
    this->save("All");
    this->save("../outside");
    std::ifstream file(this->presets().getPresetPath("All"));
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}),
              "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n\n" + all);
    this->save("Part", true);
    this->load({0, 2});
    const std::string merged = this->written();
    this->load({2});
    EXPECT_NE(this->written(), all);
    if (this->CAN_BE_MERGED) {
        this->loadPreset("Part");
        EXPECT_EQ(this->written().size(), merged.size()) << "in whatever order";
    }
    this->messages().postLoadPreset("All");
    this->stage.rest();
    EXPECT_EQ(this->written(), all);
    EXPECT_EQ(this->listed(), this->CAN_BE_MERGED ? "All Part+ " : "All Part ");
    this->messages().postRenamePreset("All", "Everything");
    this->messages().postDeletePreset("Part");
    this->messages().postDeletePreset("Nothing");
    this->stage.rest();
    EXPECT_EQ(this->listed(), "Everything ");
    EXPECT_TRUE(std::filesystem::exists(this->presets().getPresetPath("Everything")));
    EXPECT_FALSE(std::filesystem::exists(this->presets().getPresetPath("Part")));
}

TYPED_TEST(SectionPresets, ThatAreMissingBrokenOrOfAnotherSectionChangeNothing)
{
    this->load({0, 1});
    this->save("Mine");
    this->loadPreset("Mine");
    const std::string before = this->written();
    const std::string other = TypeParam::OTHER;
    this->write("Broken", "<" + std::string(this->section().getTag()) + ">");
    this->write("Other", "<" + other + "></" + other + ">");
    this->write("Empty", "");
    std::filesystem::create_directories(this->presets().getPresetPath("Folder"));
    for (const char* name : {"Missing", "Broken", "Other", "Empty", "Folder", "../Mine", ""}) {
        this->loadPreset(name);
        EXPECT_EQ(this->written(), before) << name;
    }
    EXPECT_EQ(this->stage.orv->getComputerInputManager().getCurrentPreset(),
              (std::is_same_v<TypeParam, Keys>) ? "Mine" : "");
}
