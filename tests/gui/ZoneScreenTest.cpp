#include "backend/messages/SettingMessages.h"
#include "gui/framework/EditPoster.h"
#include "gui/screens/zones/ZoneCtl.h"
#include "tests/gui/WindowStage.h"

using namespace Gui::Zones;
using Backend::MidiEngine::Note;
using Backend::Zones::Zone;

TEST(ZoneGeometry, PutsEachBarUnderTheKeysThatSoundAndTurnsPixelsIntoSemitones)
{
    const Gui::Output::KeyOutlines keys, twice(2);
    const ZoneGeometry geometry(keys), scaled(twice, 2);
    const auto zone = [](int transpose, int low = 60, int high = 67) {
        return Zone{.transpose = static_cast<std::int8_t>(transpose), .lowNote = Note(low), .highNote = Note(high)};
    };
    const auto under = [&](int low, int high, int top) {
        return QRect(QPoint(keys.leftEdge(low), top), QPoint(keys.rightEdge(high) - 1, top + 12));
    };
    EXPECT_EQ(geometry.barOf(2, zone(0)), under(60, 67, 36));
    EXPECT_EQ(geometry.barOf(0, zone(-12)), under(48, 55, 0));
    EXPECT_EQ(geometry.barOf(0, zone(63)), under(123, 127, 0)) << "the rest is beyond the keyboard";
    EXPECT_EQ(geometry.barOf(0, zone(100)), under(127, 127, 0));
    EXPECT_TRUE(geometry.barOf(0, zone(0, -1, -1)).isEmpty());
    EXPECT_EQ(scaled.barOf(1, zone(0)).top(), 36);
    EXPECT_EQ(geometry.rowAt(35), 1);
    EXPECT_EQ(geometry.rowAt(-1), -1);

    const struct {
        int pixels, left, right;
    } DRAGS[] = {{3, 0, 0}, {-3, 0, 0}, {4, 0, 1}, {-9, 0, -2}, {40, 0, 10}, {41, 12, 10}, {-83, -24, -20}};
    for (const auto& drag : DRAGS) {
        EXPECT_EQ(geometry.semitonesOf(drag.pixels, Qt::LeftButton), drag.left) << drag.pixels;
        EXPECT_EQ(geometry.semitonesOf(drag.pixels, Qt::RightButton), drag.right) << drag.pixels;
        EXPECT_EQ(scaled.semitonesOf(2 * drag.pixels, Qt::RightButton), drag.right) << drag.pixels;
    }

    EXPECT_EQ(geometry.transposeToReach(0, zone(0), keys.leftEdge(59)), -12);
    EXPECT_EQ(geometry.transposeToReach(0, zone(0), keys.leftEdge(0)), -60);
    EXPECT_EQ(geometry.transposeToReach(0, zone(0), keys.rightEdge(67)), 12);
    EXPECT_EQ(geometry.transposeToReach(0, zone(60), keys.rightEdge(127) - 1), 60) << "it is at the last key";
    EXPECT_EQ(geometry.transposeToReach(0, zone(-2), keys.rightEdge(127) - 1), 70) << "and goes no further";
}

/// A window with the zones 1, of Q and W, and 3, of Z; and the mouse on them.
struct ZoneScreen : WindowStage, testing::Test {
    ZoneScreen()
    {
        open({.system = false, .help = false, .computerInput = false, .zones = true});
        gui->showScreen(Backend::Screen::zones, true);
        const auto key = [](const char* id, const char* note, int zone) {
            const std::string event = std::string(" note='") + note + "' zone='" + std::to_string(zone) + "'/>";
            return std::string("<Key id='") + id + "'><Function><Down><MidiNoteOn" + event + "</Down><Up><MidiNoteOff" +
                   event + "</Up></Function></Key>";
        };
        load(key("Q", "C4", 0) + key("W", "G4", 0) + key("Z", "C3", 2));
        list = &control<ZoneCtl>("Zones");
    }
    std::string row(int index)
    {
        settle();
        return list->getRowName(index).toStdString();
    }
    /// From the middle of a note's key, in the row.
    void drag(int index, int note, std::initializer_list<int> offsets, Qt::MouseButton button)
    {
        const QPoint start = placeOf(index, note);
        QTest::mousePress(list, button, {}, start);
        for (const int offset : offsets) mouseMove(*list, start + QPoint(offset, 0), button);
        QTest::mouseRelease(list, button, {}, start + QPoint(*(offsets.end() - 1), 0));
    }
    QPoint placeOf(int index, int note) const
    {
        return {Gui::Output::KeyOutlines().keyRectangle(note).center().x(), list->getRowPlace(index).center().y()};
    }

    ZoneCtl* list;
};

TEST_F(ZoneScreen, IsDraggedByOctavesAndSemitonesAsOneStep)
{
    EXPECT_EQ(row(0), "Zone 1, C4 to G4");
    EXPECT_EQ(row(1), "Zone 3, C3 to C3");
    EXPECT_EQ(list->getRowCount(), 2);

    drag(0, 62, {3}, Qt::RightButton);
    EXPECT_EQ(row(0), "Zone 1, C4 to G4");
    choose("A semitone up (Right)");  // because it was a click
    EXPECT_EQ(row(0), "Zone 1, C#4 to G#4, transposed by +1");
    commands().postSetting(Backend::SETTING<Backend::Settings::CLICK_ZONE_CHANNEL_TRANSPOSE>(true));
    down("Q");
    EXPECT_EQ(played(), "C#4 on");
    drag(0, 62, {4, 8, 12}, Qt::RightButton);
    settle();
    up("Q");
    EXPECT_EQ(played(), "C#4 off") << "what began";
    EXPECT_EQ(row(0), "Zone 1, E4 to B4, transposed by +4");
    gui->getEdits().undo();
    EXPECT_EQ(row(0), "Zone 1, C#4 to G#4, transposed by +1") << "the whole drag is a step";
    drag(1, 48, {-40, -82, -123}, Qt::LeftButton);
    EXPECT_EQ(row(1), "Zone 3, C0 to C0, transposed by -36");
    EXPECT_TRUE(list->isRowSelected(1) && !list->isRowSelected(0));
    EXPECT_TRUE(orv->getZoneManager().getZones().findElement(2)->selected) << "the backend was told";
    commands().postExecuteFunction("<ChangeZoneTranspose type='selected' value='0'/>");
    EXPECT_EQ(row(1), "Zone 3, C3 to C3");
}

TEST_F(ZoneScreen, GoesWhereAClickBesideItIsIfThatIsSetAndFollowsTheKeys)
{
    const auto clickAt = [&](int index, int note) {
        QTest::mouseClick(list, Qt::LeftButton, {}, placeOf(index, note));
        return row(index);
    };
    commands().postSetClickZoneChannelTranspose(false);
    EXPECT_EQ(clickAt(0, 30), "Zone 1, C4 to G4");
    commands().postSetClickZoneChannelTranspose(true);
    settle();
    EXPECT_EQ(clickAt(0, 37), "Zone 1, C2 to G2, transposed by -24");
    EXPECT_EQ(clickAt(0, 60), "Zone 1, C4 to G4");
    down("Q");
    playSlices();
    EXPECT_TRUE(QTest::qWaitFor([&] { return list->getLitNotes(0)[60]; }));
    up("Q");
    playSlices();
    EXPECT_TRUE(QTest::qWaitFor([&] { return list->getLitNotes(0).none(); }));

    list->setFocus();
    const auto pressed = [&](int key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(list, static_cast<Qt::Key>(key), modifiers);
        return row(list->getCurrentRow());
    };
    EXPECT_EQ(pressed(Qt::Key_Home), "Zone 1, C4 to G4");
    EXPECT_EQ(pressed(Qt::Key_Down), "Zone 3, C3 to C3");
    EXPECT_EQ(pressed(Qt::Key_Right), "Zone 3, C#3 to C#3, transposed by +1");
    EXPECT_EQ(pressed(Qt::Key_Left, Qt::ShiftModifier), "Zone 3, C#2 to C#2, transposed by -11");
    gui->getEdits().undo();
    EXPECT_EQ(row(1), "Zone 3, C3 to C3") << "a held arrow key is one step";
    takePlayed();
    keyDown('Q');
    keyUp('Q');
    EXPECT_EQ(played(), "C4 on, C4 off") << "other keys play";
    wheel(*list, 1, Qt::ControlModifier);
    EXPECT_EQ(row(0), "Zone 1, C4 to G4") << "the pointer is beside the bars";
}

TEST_F(ZoneScreen, IsAListToAScreenReader)
{
    const auto* accessible = QAccessible::queryAccessibleInterface(list);
    ASSERT_EQ(accessible->role(), QAccessible::List);
    ASSERT_EQ(accessible->childCount(), 2);
    QAccessibleInterface* const second = accessible->child(1);
    EXPECT_EQ(second->role(), QAccessible::ListItem);
    EXPECT_EQ(second->text(QAccessible::Name), "Zone 3, C3 to C3");
    EXPECT_EQ(accessible->indexOfChild(second), 1);
    EXPECT_EQ(accessible->childAt(second->rect().center().x(), second->rect().center().y()), second);
    EXPECT_FALSE(second->state().selected);
    second->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(second->state().selected);
    list->setFocus();
    EXPECT_EQ(accessible->focusChild(), second);
    load("");
    settle();
    EXPECT_EQ(accessible->childCount(), 0);
    EXPECT_TRUE(second->state().invalid);
}
