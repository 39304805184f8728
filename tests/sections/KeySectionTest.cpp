#include "backend/bindings/functions/FunctionFactories.h"
#include "tests/sections/KeyStage.h"
#include "tests/stage/Allocations.h"

using namespace Backend;
using namespace Backend::ComputerInput;

TEST(KeySection, MergesOrReplaces)
{
    KeyStage stage;
    stage.load(noteKey("A", "C4") + noteKey("B", "D4"), "useKeyUpMod='true'");
    stage.load(noteKey("B", "E4") + noteKey("C", "F4"), "merge='true'");
    EXPECT_EQ(stage.names(), "A, B, C");
    EXPECT_FALSE(stage.keys().getUseKeyUpMod()) << "of the section that was read last";
    stage.down("B");
    EXPECT_EQ(stage.played(), "E4 on");
    stage.load("<Key id='A'/>");
    EXPECT_EQ(stage.names(), "A");
}

TEST(KeyPreset, IsReferredToWhileTheKeysAreItsOwn)
{
    KeyStage stage;
    ComputerInputManager& keys = stage.keys();
    stage.load(noteKey("A", "C4"));
    keys.savePreset("One & only", {});
    EXPECT_EQ(keys.getCurrentPreset(), "") << "saved is not loaded";
    const std::string embedded = stage.written();
    const auto reference = [](const std::string& name) {
        return "<ComputerInput preset='" + name + "' merge='false' useKeyUpMod='false'></ComputerInput>";
    };
    stage.load(noteKey("Z", "E4"), "preset=' One &amp; only '");
    EXPECT_EQ(stage.names(), "A") << "the content of the element is ignored";
    stage.load(noteKey("B", "C4"), "preset='Missing'");
    EXPECT_EQ(stage.names() + keys.getCurrentPreset(), "A") << "the keys stay, of no preset";
    keys.loadPreset("One & only");
    EXPECT_EQ(stage.written(), reference("One &amp; only"));
    EXPECT_EQ(flat(writtenBy([&](std::ostream& out) { keys.writeSection(out, 0, {}, true); })), embedded);

    const auto isChangedBy = [&](auto&& change) {
        keys.loadPreset("One & only");
        change();
        return keys.isPresetChanged("One & only");
    };
    const auto key = [&](const char* id) -> KeyConfiguration& { return keys.getOrCreate(Key::fromXmlString(id)); };
    EXPECT_FALSE(isChangedBy([] {}));
    EXPECT_TRUE(isChangedBy([&] { keys.setUseKeyUpMod(true); }));
    EXPECT_TRUE(isChangedBy([&] { key("A").global = false; }));
    EXPECT_TRUE(isChangedBy([&] { key("A").addEntry({}); }));
    EXPECT_TRUE(isChangedBy([&] { key("B"); })) << "a key more, though it does nothing";
    EXPECT_TRUE(stage.written().starts_with("<ComputerInput merge='false' useKeyUpMod='false'><Key id='A'"));

    keys.loadPreset("One & only");
    keys.renamePreset("One & only", " Other ");
    EXPECT_EQ(keys.getCurrentPreset(), "Other");
    EXPECT_EQ(stage.written(), reference("Other"));
    stage.writePreset("Joins", "<ComputerInput merge='true'/>");
    keys.loadPreset("Joins");
    EXPECT_EQ(stage.written(), embedded) << "a program that named it would join its keys to those of before";
    for (const bool deleted : {true, false}) {
        keys.savePreset("Other", {});
        keys.loadPreset("Other");
        if (deleted)
            keys.deletePreset("Other");
        else
            std::filesystem::remove(keys.getPresets().getPresetPath("Other"));
        EXPECT_EQ(stage.written(), embedded);
        EXPECT_EQ(keys.getCurrentPreset(), deleted ? "" : "Other");
    }
    EXPECT_FALSE(keys.isPresetChanged("Other"));
    stage.load("", "preset='  '");
    EXPECT_EQ(stage.names() + keys.getCurrentPreset(), "");
}

TEST(KeyConfigurations, OfTheWindowReplaceThoseOfTheirKeys)
{
    KeyStage stage;
    stage.load(noteKey("A", "C4") + noteKey("B", "D4"));
    const XmlElement played = rootOf(noteKey("B", "E4", " zone='3'"));
    const auto create = [&](const XmlElement& element) {
        return FunctionManagement::createFunctionFromXml(element, *stage.orv);
    };
    stage.keys().getMessageManager().postSetKeyConfigurations(
        {KeyConfiguration::fromXml(played, create), KeyConfiguration{}}, true);
    stage.rest();
    EXPECT_EQ(stage.names(), "A, B, Unknown");
    stage.down("A"), stage.down("B");
    EXPECT_EQ(stage.played(), "C4 on, E4 on");
    EXPECT_EQ(stage.zones(), "3 E4-E4");

    const KeyConfigurationMap copy = stage.orv->getComputerInputConfiguration();
    EXPECT_EQ(copy, stage.keys().getKeys());
    EXPECT_TRUE(stage.keys().getOrCreate(Key::fromXmlString("Q")).global);
    EXPECT_EQ(&stage.keys().getOrCreate(Key::fromXmlString("Q")), stage.keys().getKeys().findElement({.keyCode = 'Q'}));
    EXPECT_FALSE(copy == stage.keys().getKeys());
}

TEST(KeyConfigurations, ArePostedToTheWindow)
{
    using namespace GuiMessage;
    KeyStage stage;
    const auto received = [&] {
        return stage.received([](Message& message) -> std::string {
            const std::string number = TestWindow::number(message);
            if (const auto* map = message.payload.get<KeyConfigurationMap>())
                return number + (message.wparam == 1 ? ":" : "?") + std::to_string(map->size());
            if (const auto* some = message.payload.get<std::vector<KeyConfiguration>>())
                return number + ":" + std::to_string(some->size());
            return message.number == ZONES || message.number == PRESETS ? "" : number;
        });
    };
    stage.openWindow();
    stage.load("<Key id='A'/><Key id='B'/>", "useKeyUpMod='true'");
    EXPECT_EQ(received(), "33470:2, 33471");
    stage.keys().savePreset("P", {});
    stage.keys().loadPreset("P");
    EXPECT_EQ(received(), "33470:2, 33471, 33472");
    stage.keys().mergeKeyConfigurations({KeyConfiguration{}}, true);
    EXPECT_EQ(received(), "33469:1, 33471");
    stage.keys().mergeKeyConfigurations({KeyConfiguration{}}, false);
    EXPECT_EQ(received(), "33471");
}

TEST(KeyZones, AreThoseThatTheKeysPlayIn)
{
    KeyStage stage;
    stage.load(
        noteKey("A", "C4", " zone='2'") + noteKey("B", "G3", " zone='2'") + noteKey("C", "E4", " zone='0'") +
        noteKey("D", "E4", " zone='-1'") +
        "<Key id='E'><Function><Down><ResetOrv/></Down><Up><MidiNoteOn zone='5' note='C1'/></Up></Function>"
        "</Key><Key id='F'><Function><Down><MidiNoteOn zone='6'/></Down><Up><MidiNoteOff zone='7' note='C1'/></Up>"
        "</Function></Key>");
    EXPECT_EQ(stage.zones(), "0 E4-E4, 2 G3-C4, 5 C1-C1");
    stage.keys().setDefaults();
    EXPECT_EQ(stage.zones(), "");
}

TEST(KeyEvent, OfAModifierIsThatOfAKeyOfItsOwn)
{
    KeyStage stage;
    stage.load(noteKey("Control", "C4") + noteKey("Right Control", "D4") + noteKey("nonsense", "E4"));
    stage.down("Control"), stage.up("Control"), stage.down("Right Control");
    EXPECT_EQ(stage.played(), "C4 on, C4 off, D4 on");
    stage.down("");
    EXPECT_EQ(stage.played(), "E4 on") << "what no text names is the key of code -1";
}

TEST(KeyEvent, AllocatesTheCopyOfTheEntriesAndWhatTheQueuesTake)
{
    KeyStage stage;
    stage.load(noteKey("A", "C4"));
    const Key key = Key::fromXmlString("A");
    const auto count = [](auto&& act) {
        const auto before = allocationsOfThisThread();
        act();
        return allocationsOfThisThread() - before;
    };
    constexpr std::uint64_t QUEUE = 1;    // a place in a queue
    constexpr std::uint64_t ENTRIES = 3;  // their row, and the two functions in it
    EXPECT_EQ(count([&] { stage.commands().postKeyDown(key, false); }), QUEUE);
    EXPECT_EQ(count([&] { stage.commands().postKeyUp(key); }), QUEUE);
    stage.rest();
    EXPECT_EQ(count([&] { stage.keys().keyEvent(key, true, false); }), ENTRIES + QUEUE);
    EXPECT_EQ(count([&] { stage.keys().keyEvent(key, false, false); }), ENTRIES + QUEUE);
    EXPECT_EQ(count([&] { stage.keys().keyEvent(Key{.keyCode = 66}, true, false); }), 0u);
    EXPECT_EQ(stage.played(), "C4 on, C4 off, C4 on, C4 off");
}
