#include "tests/sections/SectionStage.h"

using namespace Backend;
using namespace Backend::Zones;
using Kind = SelectType::Kind;

namespace
{
struct ZoneStage : SectionStage<ZoneManager> {
    ZoneStage() : SectionStage(&OrvIF::getZoneManager) {}

    int selected()
    {
        for (int id = 0; id < 128; ++id)
            if (const Zone* zone = section.getZones().findElement(static_cast<ZoneId>(id)); zone && zone->selected)
                return id;
        return -1;
    }
};
}  // namespace

TEST(Zones, StayThroughASecondSectionWithItsTranspositions)
{
    ZoneStage stage;
    stage.load("<Zone id='5' transpose='12'/><Zone id='2' transpose='-3'/>");
    EXPECT_EQ(stage.selected(), 2) << "the lowest";
    stage.load("<Zone id='2' transpose='1'/><Other/><Zone/>");
    stage.section.getMessageManager().postSetZoneTranspose(0, 4);
    stage.rest();
    EXPECT_EQ(stage.written(),
              "<Zones merge='false'><Zone id='0' transpose='4'/><Zone id='2' transpose='1'/>"
              "<Zone id='5' transpose='0'/></Zones>");
    EXPECT_EQ(stage.selected(), 0);
    stage.orv->updateZones();
    EXPECT_EQ(stage.zones(), "") << "no input plays in them";
}

TEST(Zones, ReachAsFarAsTheInputsPlayInThem)
{
    using MidiEngine::Note;
    ZoneStage stage;
    stage.load("<Zone id='2' transpose='7'/><Zone id='9' transpose='1'/>");
    stage.section.selectZone({Kind::specific, 9});
    stage.section.updateZones(std::vector<FunctionManagement::FunctionNoteSpan>{{2, Note(60), Note(60)},
                                                                                {2, Note(67), Note(67)},
                                                                                {4, Note(50), Note(52)},
                                                                                {2, Note(48), Note(48)},
                                                                                {9, Note(-1), Note(-1)},
                                                                                {255, Note(1), Note(2)}});
    EXPECT_EQ(stage.zones(), "2 C3-G4, 4 D3-E3");
    EXPECT_EQ(stage.selected(), 2) << "the zone that was selected is gone, so the lowest is";
    EXPECT_NE(stage.written().find("<Zone id='2' transpose='7'/><Zone id='4' transpose='0'/>"), std::string::npos);
    stage.section.selectZone({Kind::up});
    stage.section.updateZones(
        std::vector<FunctionManagement::FunctionNoteSpan>{{4, Note(51), Note(51)}, {2, Note(60), Note(61)}});
    EXPECT_EQ(stage.zones(), "2 C4-C#4, 4 D#3-D#3");
    EXPECT_EQ(stage.selected(), 4);
    stage.rest();
}
