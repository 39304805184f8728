#include "backend/sections/controls/ControlLink.h"

#include "tests/sections/ControlStage.h"

using namespace Backend;
using namespace Backend::Controls;

TEST(ControlLink, StopsTheGroupAtAnEndUntilTheMoverIsBack)
{
    struct Move {
        int from, to;
        int lowest, highest;  // of the others
        int distance, pending;
    };
    const std::vector<Move> performances[] = {
        {{50, 30, 10, 100, -10, -40}, {30, 5, 0, 90, 0, -40}, {5, 40, 0, 90, 0, -40}, {40, 41, 0, 90, 1, 0}},
        {{50, 30, 10, 100, -10, -40}, {30, 127, 0, 90, 37, 77}, {127, 76, 37, 127, -1, 0}},
        {{64, 74, 0, 120, 7, 71}, {74, 80, 7, 127, 0, 71}, {80, 71, 7, 127, 0, 71}, {71, 64, 7, 127, -7, 0}},
        {{8192, 9000, 64, 64, 63, 8255}, {9000, 8255, 127, 127, 0, 8255}, {8255, 8192, 127, 127, -63, 0}},
    };
    for (const auto& performance : performances) {
        ControlLink link;
        for (const auto& [from, to, lowest, highest, distance, pending] : performance) {
            EXPECT_EQ(link.follow(to - from, to, lowest, highest), distance) << from << " to " << to;
            EXPECT_EQ(link.getPending(), pending) << from << " to " << to;
        }
    }
    ControlLink link;
    EXPECT_EQ(link.follow(1, 101, 0, 8192), 0) << "one beyond the scale holds the group, it never turns it round";
    EXPECT_EQ(link.follow(0, 101, 0, 100), 0);
}

TEST(LinkedControls, MoveBySameDeltaAndSendInTheOrderOfTheCells)
{
    ControlStage stage(
        {fader({0, 0}, cc(1), 10), fader({0, 1}, cc(2), 50), fader({1, 0}, cc(3), 100), fader({1, 1}, cc(4), 64)});
    stage.link({{0, 0}, {0, 1}, {1, 0}});
    stage.move({0, 1}, 30);
    EXPECT_EQ(stage.values(), "0 30 90 64");
    stage.move({0, 1}, 20);
    stage.move({0, 1}, 40);
    EXPECT_EQ(stage.values(), "0 40 90 64") << "they stay";
    stage.move({0, 1}, 45);
    EXPECT_EQ(stage.played(),
              "Controller Change 2 30, Controller Change 1 0, Controller Change 3 90, Controller Change 2 20, "
              "Controller Change 2 40, Controller Change 2 45, Controller Change 1 5, Controller Change 3 95");

    stage.move({1, 1}, 0);
    EXPECT_EQ(stage.values(), "5 45 95 0") << "not one of them, it moves alone";
    stage.section.changeControl(at(0, 1), {true, 100});
    EXPECT_EQ(stage.values(), "37 127 127 0") << "no farther than the mover itself could go, nor any of them";
    stage.section.selectControl(at(0, 0));
    stage.move({0, 1}, 117);
    EXPECT_EQ(stage.values(), "27 117 117 0") << "another selection is another group, nothing waits";
}

TEST(LinkedControls, FollowAnEventTogetherAndNotTheEventsOfEachOther)
{
    ControlStage stage(
        {fader({0, 0}, cc(1), 20), fader({0, 1}, cc(1), 40), fader({0, 2}, cc(1), 60), fader({0, 3}, cc(2), 80)});
    stage.link({{0, 0}, {0, 1}, {0, 3}});
    stage.move({0, 0}, 25);
    // All three send; those of controller 1 move only what is not selected.
    EXPECT_EQ(stage.values(), "25 45 45 85");
    EXPECT_EQ(stage.played(), "Controller Change 1 25, Controller Change 1 45, Controller Change 2 85");
    EXPECT_EQ(stage.played(), "");
    stage.arrive(controller(2, 90).channel(0).input(0));
    EXPECT_EQ(stage.values(), "30 50 45 90") << "a selected one takes the others along when it follows";
    EXPECT_EQ(stage.played(), "Controller Change 2 90") << "they send nothing of their own";
}

TEST(ControlWindow, IsNotifiedOfValuesSelectionsAndLists)
{
    ControlStage stage({fader({1, 2}, cc(1)), fader({3, 4}, cc(1))});
    stage.openWindow();
    stage.move({1, 2}, 200);
    stage.playSlices();
    stage.section.selectControl({SelectControlType::Kind::right});
    stage.section.selectControl({SelectControlType::Kind::right});
    stage.messages().postSetControls({}, true, true);
    EXPECT_EQ(stage.received([](Message& message) -> std::string {
        if (const auto* controls = message.payload.get<ControlMap>()) return std::to_string(controls->size());
        const std::string value = Cell::fromPacked(message.wparam).toXmlString() + "=" + std::to_string(message.lparam);
        if (message.number == GuiMessage::CONTROL_VALUE) return "value " + value;
        return message.number == GuiMessage::CONTROL_SELECTED ? "selected " + value : "";
    }),
              "value 1,2=127, value 3,4=127, selected 1,2=1, selected 1,2=0, selected 3,4=1, 0");
}
