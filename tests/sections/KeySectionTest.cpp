#include <gtest/gtest.h>

#include "backend/bindings/functions/FunctionFactories.h"
#include "backend/messages/GuiMessages.h"
#include "tests/sections/KeyStage.h"

using namespace Backend;
using namespace Backend::ComputerInput;

namespace
{
std::string keysOf(const std::string& section) { return section.substr(section.find('\n') + 1); }

std::string attributesOf(const std::string& section) { return section.substr(0, section.find('\n')); }

KeyConfiguration plays(OrvIF& orv, const std::string& key, const std::string& function)
{
    const XmlDocument document("<Key id='" + key + "'><Function><Down><" + function + "/></Down></Function></Key>",
                               XmlDocument::Source::text);
    return KeyConfiguration::fromXml(document.getRoot(), [&](const XmlElement& element) {
        return FunctionManagement::createFunctionFromXml(element, orv);
    });
}
}  // namespace

TEST(KeySection, ReadsBackWhatItWritesByAscendingKey)
{
    KeyStage stage;
    stage.load(
        "<Key id='Shift B' global='false'/><key id='Q'/>text<!-- c --><Other/>"
        "<Key id='B'><Function><Down><ResetOrv/></Down></Function></Key>"
        "<Key id='A'/><Key id='B'><Function keepSending='yes'><Down><Nonsense/></Down>"
        "<Up><SelectZone type='down'/></Up></Function></Key>",
        "useKeyUpMod='yes'");
    const std::string text =
        "<ComputerInput merge=\"false\" useKeyUpMod=\"true\">\n"
        "\t<Key id=\"A\" global=\"true\">\n\t</Key>\n"
        "\t<Key id=\"B\" global=\"true\">\n"
        "\t\t\t<Function keepSending=\"true\">\n"
        "\t\t\t\t<Up>\n\t\t\t\t\t<SelectZone type=\"down\"/>\n\t\t\t\t</Up>\n"
        "\t\t\t</Function>\n\t</Key>\n"
        "\t<Key id=\"Shift B\" global=\"false\">\n\t</Key>\n"
        "</ComputerInput>\n";
    EXPECT_EQ(stage.written(), text);
    stage.load("");
    EXPECT_EQ(stage.names(), "");
    stage.keys().loadSection(XmlDocument(text, XmlDocument::Source::text).getRoot());
    EXPECT_EQ(stage.written(), text);
    stage.keys().loadSection(XmlDocument("<MidiInput preset='x'/>", XmlDocument::Source::text).getRoot());
    EXPECT_EQ(stage.written(), text);
}

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

TEST(KeySection, OfOneListIsWrittenToBeMergedWithUnboundKeysForMissingOnes)
{
    KeyStage stage;
    stage.load(noteKey("A", "C4") + noteKey("B", "D4"));
    const std::string section = stage.written({"Shift F1", "B"});
    EXPECT_EQ(attributesOf(section), "<ComputerInput merge=\"true\" useKeyUpMod=\"false\">");
    EXPECT_TRUE(keysOf(section).starts_with("\t<Key id=\"Shift F1\" global=\"true\">\n\t</Key>\n\t<Key id=\"B\""));
    EXPECT_EQ(section.find("id=\"A\""), std::string::npos);
}

TEST(KeyPreset, IsReferredToWhileTheKeysAreItsOwn)
{
    KeyStage stage;
    stage.load(noteKey("A", "C4"));
    stage.keys().savePreset("One & only", {});
    EXPECT_EQ(stage.keys().getCurrentPreset(), "") << "saved is not loaded";
    const std::string embedded = stage.written();
    const std::string reference =
        "<ComputerInput preset=\"One &amp; only\" merge=\"false\" useKeyUpMod=\"false\">\n</ComputerInput>\n";
    stage.load(noteKey("Z", "E4"), "preset=' One &amp; only '");
    EXPECT_EQ(stage.names(), "A") << "what stands in the element is ignored";
    stage.load(noteKey("B", "C4"), "preset='Missing'");
    EXPECT_EQ(stage.names() + stage.keys().getCurrentPreset(), "A") << "the keys stay, of no preset";
    stage.keys().loadPreset("One & only");
    EXPECT_EQ(stage.written(), reference);
    EXPECT_EQ(stage.written({}, true), embedded);

    const auto changed = [&] { return stage.keys().isPresetChanged("One & only"); };
    stage.keys().setUseKeyUpMod(true);
    EXPECT_TRUE(changed());
    stage.keys().setUseKeyUpMod(false);
    EXPECT_FALSE(changed());
    stage.keys().getOrCreate(Key::fromXmlString("B"));
    EXPECT_TRUE(changed()) << "a key more, though it does nothing";
    EXPECT_EQ(attributesOf(stage.written()), "<ComputerInput merge=\"false\" useKeyUpMod=\"false\">");
    stage.keys().loadPreset("One & only");
    stage.keys().getOrCreate(Key::fromXmlString("A")).global = false;
    EXPECT_TRUE(changed());
    stage.keys().loadPreset("One & only");
    stage.keys().getOrCreate(Key::fromXmlString("A")).addEntry({});
    EXPECT_TRUE(changed());

    stage.keys().loadPreset("One & only");
    stage.keys().renamePreset("One & only", " Other ");
    EXPECT_EQ(stage.keys().getCurrentPreset(), "Other");
    EXPECT_EQ(attributesOf(stage.written()), "<ComputerInput preset=\"Other\" merge=\"false\" useKeyUpMod=\"false\">");
    stage.writePreset("Joins", "<ComputerInput merge='true'/>");
    stage.keys().loadPreset("Joins");
    EXPECT_EQ(stage.written(), embedded) << "a program that named it would join its keys to those of before";
    for (const bool deleted : {true, false}) {
        stage.keys().savePreset("Other", {});
        stage.keys().loadPreset("Other");
        if (deleted)
            stage.keys().deletePreset("Other");
        else
            std::filesystem::remove(stage.keys().getPresets().getPresetPath("Other"));
        EXPECT_EQ(stage.written(), embedded);
        EXPECT_EQ(stage.keys().getCurrentPreset(), deleted ? "" : "Other");
    }
    EXPECT_FALSE(stage.keys().isPresetChanged("Other"));
    stage.writePreset("K\xE9", "<ComputerInput>" + noteKey("B", "D4") + "</ComputerInput>");
    stage.keys().loadPreset("K\xE9");
    EXPECT_EQ(stage.names() + stage.keys().getCurrentPreset(), "B") << "no program can hold a name that is not UTF-8";
    stage.load("", "preset='  '");
    EXPECT_EQ(stage.names() + stage.keys().getCurrentPreset(), "");
}

TEST(KeyConfigurations, OfTheWindowReplaceThoseOfTheirKeys)
{
    KeyStage stage;
    stage.load(noteKey("A", "C4") + noteKey("B", "D4"));
    stage.orv->getComputerInputMessageManager().postSetKeyConfigurations(
        {plays(*stage.orv, "B", "MidiNoteOn output='0' channel='0' zone='3' note='E4'"), KeyConfiguration{}}, true);
    stage.rest();
    EXPECT_EQ(stage.names(), "A, B, Unknown");
    stage.down("A"), stage.down("B"), stage.up("B");
    EXPECT_EQ(stage.played(), "C4 on, E4 on");
    EXPECT_NE(stage.orv->getZoneManager().getZones().findElement(3), nullptr);

    const KeyConfigurationMap copy = stage.orv->getComputerInputConfiguration();
    EXPECT_EQ(copy, stage.keys().getKeys());
    EXPECT_TRUE(stage.keys().getOrCreate(Key::fromXmlString("Q")).global);
    EXPECT_EQ(&stage.keys().getOrCreate(Key::fromXmlString("Q")), stage.keys().getKeys().findElement({.keyCode = 'Q'}));
    EXPECT_FALSE(copy == stage.keys().getKeys());
}

TEST(KeyConfigurations, ArePostedToTheWindow)
{
    KeyStage stage;
    const auto window = std::make_shared<MessageQueue>(64);
    const auto received = [&] {
        std::vector<unsigned> numbers;
        while (window->handleNext([&](Message& message) {
            if (message.number == GuiMessage::COMPUTER_INPUT) {
                EXPECT_EQ(message.wparam, 1u);
                EXPECT_EQ(message.payload.get<KeyConfigurationMap>()->size(), 2u);
            }
            if (message.number == GuiMessage::KEY_CONFIGURATIONS) {
                EXPECT_EQ(message.payload.get<std::vector<KeyConfiguration>>()->size(), 1u);
            }
            const bool isOfOthers = message.number == GuiMessage::ZONES || message.number == GuiMessage::PRESETS;
            if (!isOfOthers) numbers.push_back(message.number);
        })) {}
        return numbers;
    };
    using Numbers = std::vector<unsigned>;
    stage.orv->setGuiWindowHandle(WindowHandle(window));
    stage.load("<Key id='A'/><Key id='B'/>", "useKeyUpMod='true'");
    EXPECT_EQ(received(), (Numbers{GuiMessage::COMPUTER_INPUT, GuiMessage::COMPUTER_INPUT_CHANGED}));
    stage.keys().savePreset("P", {});
    stage.keys().loadPreset("P");
    EXPECT_EQ(received(), (Numbers{GuiMessage::COMPUTER_INPUT, GuiMessage::COMPUTER_INPUT_CHANGED,
                                   GuiMessage::COMPUTER_INPUT_PRESET}));
    stage.keys().mergeKeyConfigurations({KeyConfiguration{}}, true);
    EXPECT_EQ(received(), (Numbers{GuiMessage::KEY_CONFIGURATIONS, GuiMessage::COMPUTER_INPUT_CHANGED}));
    stage.keys().mergeKeyConfigurations({KeyConfiguration{}}, false);
    EXPECT_EQ(received(), (Numbers{GuiMessage::COMPUTER_INPUT_CHANGED}));
}

TEST(KeyZones, AreThoseThatTheKeysPlayIn)
{
    const auto zoneKey = [](const std::string& id, const std::string& note, const std::string& zone) {
        return noteKey(id, note, " zone='" + zone + "'");
    };
    KeyStage stage;
    stage.load(zoneKey("A", "C4", "2") + zoneKey("B", "G3", "2") + zoneKey("C", "E4", "0") + zoneKey("D", "E4", "-1") +
               "<Key id='E'><Function><Down><ResetOrv/></Down><Up><MidiNoteOn zone='5' note='C1'/></Up></Function>"
               "</Key><Key id='F'><Function><Down><MidiNoteOn zone='6'/></Down></Function></Key>");
    std::vector<FunctionManagement::FunctionNoteSpan> spans;
    stage.keys().getNoteSpans(spans);
    EXPECT_EQ(spans.size(), 4u);
    const auto& zones = stage.orv->getZoneManager().getZones();
    ASSERT_EQ(zones.size(), 3u);
    EXPECT_EQ(zones.findElement(2)->lowNote.toXmlString() + zones.findElement(2)->highNote.toXmlString(), "G3C4");
    EXPECT_NE(zones.findElement(5), nullptr);
    stage.keys().setDefaults();
    EXPECT_EQ(zones.size(), 0u);
}
