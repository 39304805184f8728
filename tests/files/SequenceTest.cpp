#include "api/OrvUtils.h"
#include "backend/files/SequencePresetManager.h"
#include "backend/files/version2/SequenceTemplates.h"
#include "backend/model/Layer.h"
#include "tests/stage/Stage.h"

using namespace Backend;
using namespace Backend::SequenceManagement;

namespace
{
const std::string SEQUENCES = "data/Brinlow Software/Orvane 3/Sequences";
const std::string FACTORY_SEQUENCES = "prog/Default/Sequences";

std::string fileOf(const std::string& text)
{
    return "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n\t<Sequence>" + text + "</Sequence>\n";
}

/// The sequences of a user whose folders are the test's.
struct Sequences : PrivateFolders {
    SequencePresetManager manager;

    Sequences() { OrvUtils::setOrvProgDir((*this / "prog").string()); }

    std::string list() const { return joined(manager.getList(), std::identity(), ","); }
};
}  // namespace

TEST(SequenceText, IsTheLayersOwnWhenItIsTyped)
{
    for (const auto& [text, printed] : {std::pair{"", ""}, {"   ", ""}, {" 0 | 7 , 12|19 ", "0|7,12|19"}}) {
        SequenceSetting setting;
        setting.preset = "of another";
        setting.setSequenceText(text);
        EXPECT_EQ(setting.getSequenceText(), printed) << text;
        EXPECT_EQ(setting.preset, "");
    }
}

TEST(SequencePresets, StartWithTheFactorysAndAreTheUsersFromThenOn)
{
    Sequences sequences;
    sequences.manager.load();
    EXPECT_EQ(sequences.list(), "") << "the factory's folder is missing";
    sequences.write(FACTORY_SEQUENCES + "/b.seq", fileOf("0,12"));
    sequences.write(FACTORY_SEQUENCES + "/a.seq", fileOf("0"));
    sequences.write(FACTORY_SEQUENCES + "/B.txt", "");
    sequences.manager.load();
    EXPECT_EQ(sequences.list(), "B,a,b");
    EXPECT_EQ(sequences.manager.indexOf("a"), 1);
    EXPECT_EQ(sequences.manager.indexOf("A"), -1);

    EXPECT_TRUE(sequences.manager.addPreset(" C 1 ", " 0 V0 , 7|12,"));
    EXPECT_EQ(sequences.read(SEQUENCES + "/C 1.seq"), fileOf("0,7|12"));
    EXPECT_TRUE(sequences.manager.addPreset("C 1", "5"));
    EXPECT_FALSE(sequences.manager.addPreset("a/b", "5"));
    EXPECT_FALSE(sequences.manager.addPreset(" ", "5"));
    EXPECT_EQ(sequences.list(), "B,C 1,a,b") << "each name once";

    sequences.manager.renamePreset("C 1", "a");
    sequences.manager.renamePreset("none", "d");
    sequences.manager.renamePreset("C 1", "../d");
    sequences.manager.renamePreset("C 1", "d");
    sequences.manager.deletePreset("a");
    sequences.manager.deletePreset("A");
    EXPECT_EQ(sequences.list(), "B,b,d");
    EXPECT_EQ(sequences.contents(SEQUENCES), "B.txt b.seq d.seq");
    EXPECT_EQ(sequences.read(SEQUENCES + "/d.seq"), fileOf("5"));
    sequences.manager.load();
    EXPECT_EQ(sequences.list(), "B,b,d");
}

TEST(SequencePresets, AreTheBackendsToAddAndNotListedIfTheyCannotBeWritten)
{
    Stage stage;
    stage.commands().postAddSequencePreset("Mine", "0,7");
    stage.rest();
    EXPECT_TRUE(stage.orv->getSequencePresetManager().exists("Mine"));
    EXPECT_EQ(stage.folders.read(SEQUENCES + "/Mine.seq"), fileOf("0,7"));

    Sequences sequences;
    sequences.write(SEQUENCES, "a file in the place of the folder");
    EXPECT_FALSE(sequences.manager.addPreset("a", "5"));
    EXPECT_EQ(sequences.list(), "");
}

TEST(SequencePresets, ComeIntoALayerByName)
{
    Sequences sequences;
    sequences.write(SEQUENCES + "/x.seq", "<Any> 0 ,7</Any>");
    sequences.write(SEQUENCES + "/off.seq", fileOf("1"));
    sequences.write(SEQUENCES + "/bad.seq", "<Sequence>1");
    sequences.write("data/Brinlow Software/Orvane 3/out.seq", fileOf("1"));
    const SequenceSetting x = sequenceFromPreset(" x ");
    EXPECT_EQ(x.preset, "x");
    EXPECT_EQ(x.getSequenceText(), "0,7");
    EXPECT_TRUE(x.useNote && x.useVelocity && x.useLength);
    EXPECT_EQ(sequenceFromPreset("Off").preset, "");
    EXPECT_EQ(sequenceFromPreset("off").getSequenceText(), "1");
    for (const char* name : {"bad", "gone", "../out"}) {
        EXPECT_EQ(sequenceFromPreset(name).preset, name);
        EXPECT_TRUE(sequenceFromPreset(name).nodes.empty()) << name;
    }
    const SequenceSetting named = SequenceSetting::fromXml(rootOf("<SequenceSetting preset=' x ' useNote='no'/>"));
    EXPECT_EQ(flat(writtenBy([&](std::ostream& out) { named.writeXml(out, 0); })),
              "<SequenceSetting preset='x' useNote='false' useVelocity='true' useLength='true'></SequenceSetting>");
}

TEST(SequenceTemplates, EachNamesASequenceThatIsInstalled)
{
    const PrivateFolders folders;
    OrvUtils::setOrvProgDir(ORVANE_CONTENT);
    SequencePresetManager manager;
    manager.load();
    std::set<std::string> named;
    for (int number = -1; number < 130; ++number) {
        const SequenceSetting setting = fromTemplate(number, 2);
        const bool isGap = number < 0 || (number > 44 && number < 49) || (number > 71 && number < 90) || number > 111;
        EXPECT_EQ(setting.nodes.empty(), isGap) << number << " " << setting.preset;
        EXPECT_TRUE(setting.preset.empty() || manager.exists(setting.preset)) << setting.preset;
        if (!isGap) named.insert(setting.preset);
        EXPECT_EQ(fileOf(setting.getSequenceText()),
                  isGap ? fileOf("") : folders.read(SEQUENCES + "/" + setting.preset + ".seq"))
            << "as we would write it";
    }
    EXPECT_EQ(named.size(), manager.getList().size()) << "and each that is installed has a number";
    EXPECT_EQ(fromTemplate(10, 0).getSequenceText(), "0,7");
    const std::pair<int, const char*> known[] = {
        {0, "001 - Oct 1 Up"},     {32, "033 - Seq 10"},      {43, "044 - Drums 11"},     {44, "042 - Drums 9"},
        {49, "050 - Note 1 of 2"}, {71, "072 - Note 8 of 8"}, {90, "073 - Oct 1 Up (2)"}, {111, "094 - m2 Down (2)"}};
    for (const auto& [number, name] : known) EXPECT_EQ(fromTemplate(number, 0).preset, name);
}

TEST(SequenceTemplates, SetTheLayerUpForTheirMode)
{
    const PrivateFolders folders;
    for (const auto& [mode, flags] : {std::pair{0, "N L"}, {1, "-VL"}, {2, "NVL"}, {3, "N L"}, {-1, "N L"}}) {
        const SequenceSetting setting = fromTemplate(3, mode);
        EXPECT_EQ(std::string{setting.useNote ? 'N' : '-'} + (setting.useVelocity ? 'V' : ' ') +
                      (setting.useLength ? 'L' : '-'),
                  flags);
        EXPECT_FALSE(fromTemplate(45, mode).useLength);
    }
    const auto applied = [](int number, int transpose) {
        Layers::Layer layer;
        layer.transpose = {.relative = false, .value = transpose};
        layer.arpeggio = {.beat = 120, .length = 60};
        applyTemplate(layer, number, 0);
        return layer.transpose.toXmlString() + " " + layer.arpeggio->toString();
    };
    EXPECT_EQ(applied(32, 60), "60 Chord Arp 1/16 Len:1/32");
    EXPECT_EQ(applied(33, 60), "0 Chord Arp 1/16 Len:1/32");
    EXPECT_EQ(applied(36, 61), "61 Chord Arp 1/8 Len:1/16") << "Drums 4";
    EXPECT_EQ(applied(41, 60), "0 Chord Arp 1/16 Len:1/32") << "Drums 9";
    EXPECT_EQ(applied(44, 60), "0 Chord Arp 1/8 Len:1/16") << "Drums 9 at half the pace";
}
