#include "backend/sections/zones/ZoneManager.h"

#include <gtest/gtest.h>

#include <sstream>

#include "backend/xml/XmlDocument.h"
#include "tests/stage/Stage.h"

using namespace Backend;
using namespace Backend::MidiEngine;
using namespace Backend::Zones;
using Kind = SelectType::Kind;

namespace
{
struct ZoneStage : Stage {
    ZoneManager& zones() { return orv->getZoneManager(); }

    void read(const std::string& section)
    {
        zones().readXml(XmlDocument("<Zones>" + section + "</Zones>", XmlDocument::Source::text).getRoot());
        rest();
    }
    std::string written()
    {
        std::ostringstream out;
        zones().writeInProgram(out, 0);
        return out.str();
    }
    int selected()
    {
        for (int id = 0; id < 128; ++id)
            if (const Zone* zone = zones().getZones().findElement(static_cast<ZoneId>(id)))
                if (zone->selected) return id;
        return -1;
    }
    void note(MessageType type, int note, int zone) { play({type, note, 100, -1, -1, zone, -1, -1}); }
};
}  // namespace

TEST(Zones, StayThroughASecondSectionWithItsTranspositions)
{
    ZoneStage stage;
    stage.read("<Zone id='5' transpose='12'/><Zone id='2' transpose='-3'/>");
    EXPECT_EQ(stage.selected(), 2) << "the lowest";
    stage.read("<Zone id='2' transpose='1'/><Other/><Zone/>");
    EXPECT_EQ(stage.written(),
              "<Zones merge=\"false\">\n\t<Zone id=\"0\" transpose=\"0\"/>\n\t<Zone id=\"2\" transpose=\"1\"/>\n"
              "\t<Zone id=\"5\" transpose=\"0\"/>\n</Zones>\n");
    EXPECT_EQ(stage.selected(), 0);
    stage.orv->updateZones();
    EXPECT_EQ(stage.zones().getZones().size(), 0u) << "no input plays in them";
}

TEST(Zones, ReachAsFarAsTheInputsPlayInThem)
{
    ZoneStage stage;
    stage.read("<Zone id='2' transpose='7'/><Zone id='9' transpose='1'/>");
    stage.zones().selectZone({Kind::specific, 9});
    const auto update = [&](std::vector<FunctionManagement::FunctionNoteSpan> spans) {
        stage.zones().updateZones(spans);
        std::string text;
        for (int id = 0; id < 128; ++id)
            if (const Zone* zone = stage.zones().getZones().findElement(static_cast<ZoneId>(id)))
                text += std::to_string(id) + " " + zone->lowNote.toXmlString() + "-" + zone->highNote.toXmlString() +
                        " " + std::to_string(zone->transpose) + (zone->selected ? " selected; " : "; ");
        stage.rest();
        return text;
    };
    EXPECT_EQ(update({{2, Note(60), Note(60)},
                      {2, Note(67), Note(67)},
                      {4, Note(50), Note(52)},
                      {2, Note(48), Note(48)},
                      {9, Note(-1), Note(-1)},
                      {255, Note(1), Note(2)}}),
              "2 C3-G4 7 selected; 4 D3-E3 0; ")
        << "the zone that was selected is gone, so the lowest is";
    stage.zones().selectZone({Kind::up});
    EXPECT_EQ(update({{4, Note(51), Note(51)}, {2, Note(60), Note(61)}}), "2 C4-C#4 7; 4 D#3-D#3 0 selected; ");
}

TEST(Zones, AHeldNoteEndsWhereItSoundsWhateverBecomesOfItsZone)
{
    ZoneStage stage;
    stage.read("<Zone id='1' transpose='12'/>");
    stage.note(MessageType::noteOn, 60, 1);
    EXPECT_EQ(stage.played(), "C5 on");
    stage.zones().setZoneTranspose(1, 2);
    stage.note(MessageType::noteOn, 60, 1);
    stage.note(MessageType::noteOff, 60, 1);
    EXPECT_EQ(stage.played(), "D4 on, D4 off, C5 off") << "the latest press, then the other outcome whole";
    stage.zones().setDefaults();
    stage.note(MessageType::noteOff, 60, 1);
    EXPECT_EQ(stage.played(), "D4 off") << "its zone is gone";
    stage.note(MessageType::noteOff, 60, 1);
    EXPECT_EQ(stage.played(), "D4 off") << "as its latest press sounded";
    stage.read("<Zone id='1' transpose='1'/>");
    stage.note(MessageType::noteOff, 61, 1);
    EXPECT_EQ(stage.played(), "C#4 off") << "never happened: as it is";
}
