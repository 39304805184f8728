#include "backend/sections/controls/ControlManager.h"

#include <gtest/gtest.h>

#include <memory>

#include "backend/messages/GuiMessages.h"
#include "backend/sections/controls/DefaultControls.h"
#include "tests/sections/ControlStage.h"

using namespace Backend;
using namespace Backend::Controls;
using Kind = SelectControlType::Kind;

namespace
{
std::vector<Control> defaults()
{
    std::vector<Control> all;
    defaultControls().forEach([&](const Control& control) { all.push_back(control); });
    return all;
}
}  // namespace

TEST(ControlSelection, RunsThroughTheGridLikeTextAndStopsAtItsEdge)
{
    struct Row {
        const char* before;
        SelectControlType select;
        const char* after;
    };
    for (const auto& [before, select, after] : {Row{"", {Kind::right}, "0,0"},
                                                {"", {Kind::down}, "0,0"},
                                                {"", {Kind::left}, ""},
                                                {"", {Kind::up}, ""},
                                                {"0,0", {Kind::down}, "2,0"},
                                                {"0,0", {Kind::up}, "0,0"},
                                                {"0,0", {Kind::right}, "0,7"},
                                                {"0,7", {Kind::right}, "2,0"},
                                                {"0,7", {Kind::down}, "0,7"},
                                                {"2,0", {Kind::left}, "0,7"},
                                                {"3,0", {Kind::left}, "2,4"},
                                                {"2,4", {Kind::right}, "3,0"},
                                                {"15,15", {Kind::right}, "15,15"},
                                                {"15,15", {Kind::down}, "15,15"},
                                                {"3,0", at(2, 4), "2,4"},
                                                {"3,0", at(2, 5), "3,0"},
                                                {"3,0", at(16, 0), "16,0"},
                                                {"3,0", {Kind::all}, "3,0"},
                                                {"16,0", {Kind::down}, "16,0"}}) {
        ControlStage stage({});
        for (const Cell& cell : {Cell{0, 0}, {0, 7}, {2, 0}, {2, 4}, {3, 0}, {15, 15}, {16, 0}}) {
            Control control = fader(cell, cc(1));
            control.selected = cell.toXmlString() == before;
            stage.controls().mergeControls({control}, false, false);
        }
        stage.controls().selectControl(select);
        EXPECT_EQ(stage.selected(), after) << before << " " << select.toXmlString();
    }
}

TEST(ControlChanges, ReachTheirTargetWithinItsRange)
{
    Control inverted = fader({0, 1}, cc(2), 100, 20);
    inverted.min = 110;
    ControlStage stage({fader({0, 0}, cc(1), 64), inverted});
    auto& controls = stage.controls();
    controls.changeControl({Kind::selected}, {false, 1});
    controls.changeControl(at(5, 5), {false, 1});
    EXPECT_EQ(stage.values(), "64 100") << "nothing selected, nothing there";
    EXPECT_EQ(stage.played(), "");

    controls.changeControl(at(0, 1), {true, 50});
    EXPECT_EQ(stage.values(), "64 110");
    controls.changeControl(at(0, 1), {false, -5});
    EXPECT_EQ(stage.values(), "64 20") << "clamped between the two, whichever is above";
    controls.selectControl(at(0, 0));
    controls.changeControl({Kind::selected}, {true, -10});
    controls.changeControl(at(-1, -1), {true, -10});
    controls.changeControl({Kind::up}, {true, -2147483647});
    EXPECT_EQ(stage.values(), "0 20") << "no cell is the selected one's, and so is any other kind";
    controls.changeControl({Kind::up}, {true, 2147483647});
    EXPECT_EQ(stage.values(), "127 20");
    EXPECT_EQ(stage.played(),
              "Controller Change 2 110, Controller Change 2 20, Controller Change 1 54, Controller Change 1 44, "
              "Controller Change 1 0, Controller Change 1 127");
}

TEST(ControlFollowing, MovesWhatHoldsTheSameEventAndSendsNothing)
{
    ControlStage stage(defaults());
    stage.move({0, 1}, 30);
    EXPECT_EQ(stage.values(), "8192 30 100 0 0 0 0 0 8192 30 100 64 0") << "the box below";
    stage.move({2, 0}, 16000);
    stage.midi(1, MessageType::channelPressure, 77, 0, 9);
    EXPECT_EQ(stage.values(), "16000 30 100 0 77 0 0 0 16000 30 100 64 77") << "from inside and outside";
    EXPECT_EQ(stage.played(), "Controller Change 1 30, Pitch Bend 0 125, Channel Pressure 77 0");
    EXPECT_EQ(stage.played(), "") << "no event goes round";

    stage.setLayers({});
    stage.move({0, 2}, 5);
    EXPECT_EQ(stage.values(), "16000 30 5 0 77 0 0 0 16000 30 100 64 77") << "what goes nowhere is not followed";
}

TEST(ControlFollowing, AsksForEventOutputChannelAndZone)
{
    std::vector<Control> all;
    const auto add = [&](int output, int channel, int zone, MidiMessage event = cc(7)) {
        Control control = fader({0, static_cast<int>(all.size())}, event);
        control.functions[0].output = static_cast<std::int8_t>(output);
        control.functions[0].channel = static_cast<std::int8_t>(channel);
        control.functions[0].zone = static_cast<std::int8_t>(zone);
        all.push_back(control);
    };
    add(-1, -1, -1), add(-1, 4, -1), add(1, 4, -1), add(-1, -1, 2), add(1, -1, -1), add(-1, -1, -1, cc(8));
    all.push_back(fader({1, 0}, cc(7)));
    all.back().functions.clear();
    ControlStage stage(all);
    const auto send = [&](int output, int channel, int zone, int value) {
        stage.play(controller(7, value).output(output).channel(channel).zone(zone));
    };
    send(-1, -1, -1, 1);
    EXPECT_EQ(stage.values(), "1 0 0 0 0 0 0");
    send(-1, 4, -1, 2);
    EXPECT_EQ(stage.values(), "1 2 0 0 0 0 0") << "for the default output, as it was when it came";
    send(1, 4, -1, 3);
    send(-1, -1, 2, 4);
    EXPECT_EQ(stage.values(), "1 2 3 4 0 0 0");
    stage.setOutputEnabled(1, false);
    send(1, 4, -1, 5);
    send(-1, 5, -1, 6);
    EXPECT_EQ(stage.values(), "1 2 3 4 0 0 0");
}

TEST(ControlFollowing, LeavesToTheLinkWhatTheLinkHasMoved)
{
    ControlStage stage(
        {fader({0, 0}, cc(1), 20), fader({0, 1}, cc(1), 40), fader({0, 2}, cc(1), 60), fader({0, 3}, cc(2), 80)});
    stage.link({{0, 0}, {0, 1}, {0, 3}});
    stage.move({0, 0}, 25);
    // All three send; those of controller 1 move only what is not selected.
    EXPECT_EQ(stage.values(), "25 45 45 85");
    EXPECT_EQ(stage.played(), "Controller Change 1 25, Controller Change 1 45, Controller Change 2 85");
    EXPECT_EQ(stage.played(), "");
    stage.midi(0, MessageType::controllerChange, 2, 90, 0);
    EXPECT_EQ(stage.values(), "30 50 45 90") << "a selected one takes the others along when it follows";
    EXPECT_EQ(stage.played(), "Controller Change 2 90") << "without a sound of their own";
}

TEST(ControlWindow, IsNotifiedOfValuesSelectionsAndLists)
{
    ControlStage stage({fader({1, 2}, cc(1)), fader({3, 4}, cc(1))});
    const auto window = std::make_shared<MessageQueue>(64);
    stage.orv->setGuiWindowHandle(WindowHandle(window));
    stage.move({1, 2}, 200);
    stage.playSlices();
    stage.controls().selectControl({Kind::right});
    stage.controls().selectControl({Kind::right});
    stage.orv->getControlMessageManager().postSetControls({}, true, true);
    stage.rest();
    std::string received;
    while (window->handleNext([&](Message& message) {
        const std::string where = Cell::fromPacked(message.wparam).toXmlString() + "=" + std::to_string(message.lparam);
        if (message.number == GuiMessage::CONTROL_VALUE) received += "value " + where + "; ";
        if (message.number == GuiMessage::CONTROL_SELECTED) received += "selected " + where + "; ";
        if (message.number == GuiMessage::CONTROLS)
            received += std::to_string(message.payload.get<ControlMap>()->size()) + " controls";
    })) {}
    EXPECT_EQ(received, "value 1,2=127; value 3,4=127; selected 1,2=1; selected 1,2=0; selected 3,4=1; 0 controls");
}
