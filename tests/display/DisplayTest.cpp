#include "backend/display/Display.h"

#include <regex>

#include "api/DisplayListener.h"
#include "backend/display/DisplayLine.h"
#include "backend/messages/SettingMessages.h"
#include "tests/stage/Stage.h"

using namespace Backend;
using namespace Backend::Display;
using namespace Backend::MidiEngine;

namespace
{
/// Writes down what it receives, "+" before what is added and "=" before the whole text.
struct WritingListener final : DisplayListener {
    std::string received;
    void addText(const char* text) override { received += std::string("+") + text; }
    void setText(const char* text) override { received += std::string("=") + text; }
};

struct DisplayStage : Stage {
    WritingListener listener;
    DisplayMessageManager& display = orv->getDisplayMessageManager();

    DisplayStage()
    {
        orv->setDisplayListener(&listener);
        text();
    }
    ~DisplayStage()
    {
        display.setListener(nullptr);
        rest();
    }
    /// What is new.
    std::string text()
    {
        rest();
        display.postUpdateListener();
        rest();
        return std::exchange(listener.received, "");
    }
};
}  // namespace

TEST(DisplayLine, ShowsEachKindOfEventInItsColumns)
{
    const auto unknown = [](int status) { return MidiMessage(static_cast<MessageType>(status)); };
    const std::pair<MidiMessage, std::string> rows[] = {
        {MidiMessage(MessageType::noteOff, 60, 64, 1), "P\t2\tNote Off\t60 (C4)\t64"},
        {MidiMessage(MessageType::noteOn, 0, 127, 15), "P\t16\tNote On\t0 (C-1)\t127"},
        {MidiMessage(MessageType::keyPressure, 60, 1), "P\t1\tKey Pressure\t60\t1"},
        {MidiMessage(MessageType::controllerChange, 7, 100), "P\t1\tController Change\t7 (Channel Volume)\t100"},
        {MidiMessage(MessageType::programChange, 21, 9), "P\t1\tProgram Change\t21 (Accoridan)"},
        {MidiMessage(MessageType::channelPressure, 3, 9), "P\t1\tChannel Pressure\t3"},
        {MidiMessage(MessageType::pitchBend, 1, 64), "P\t1\tPitch Bend\t8193"},
        {MidiMessage(MessageType::systemExclusive, 1, 2), "P\t1\tSystem Exclusive"},
        {MidiMessage(MessageType::songPosition, 127, 127), "P\t\tSong Position\t16383"},
        {MidiMessage(MessageType::songSelect, 5), "P\t\tSong Select\t5"},
        {MidiMessage(MessageType::unofficialBusSelect, 5), "P\t\tUnofficial Bus Select\t5"},
        {MidiMessage(MessageType::tuneRequest), "P\t\tTune Request"},
        {MidiMessage(MessageType::endOfSysex), "P\t\tEnd Of Sysex"},
        {MidiMessage(MessageType::timingTick), "P\t\tTiming Tick"},
        {MidiMessage(MessageType::startSong), "P\t\tStart Song"},
        {MidiMessage(MessageType::systemReset), "P\t\tSystem Reset"},
        {unknown(0xF9), "P\t\tUnknown"},
        {MidiMessage(MessageType::keyPressure, 255, 128), "P\t1\tKey Pressure\t-1\t-128"}};
    for (const auto& [message, line] : rows) EXPECT_EQ(formatLine("P", message), line + "\r\n");
    for (const int status : {0xF1, 0xF4, 0x70, 0}) EXPECT_EQ(formatLine("P", unknown(status)), "-\r\n");
}

TEST(DisplayText, DropsItsOlderHalfWhenFull)
{
    DisplayText text;
    text.append(std::string(14000, 'a'));
    text.append(std::string(1000, 'b'));
    text.append(std::string(14990, 'c'));
    EXPECT_EQ(text.all().size(), 29990u);
    text.append(std::string(9, 'd'));
    EXPECT_EQ(text.all().size(), 29999u) << "room for the NUL alone is left";
    text.append(std::string(DisplayText::TOO_LONG, 'x'));
    EXPECT_EQ(text.all().size(), 29999u) << "too long";
    EXPECT_STREQ(text.takeUnsent(), text.all().c_str());
    text.append("e");
    EXPECT_EQ(text.all(), "b" + std::string(14990, 'c') + std::string(9, 'd') + "e") << "14999 went";
    EXPECT_STREQ(text.takeUnsent(), "e") << "the listener has the rest";
    EXPECT_FALSE(text.hasUnsent());
    text.append(std::string(14998, 'f'));
    text.append("g");
    EXPECT_STREQ(text.takeAll(), text.all().c_str());
    EXPECT_FALSE(text.hasUnsent());
}

TEST(Display, ShowsWhatIsPlayedAndWhatComesInWhenAskedTo)
{
    DisplayStage stage;
    stage.display.postResendText();
    EXPECT_EQ(stage.text(), "=Orvane 3.2\r\n") << "the listener came when it was there already";
    stage.play(noteOn(60).output(1).channel(0));
    stage.playSlices();
    EXPECT_EQ(stage.text(), "+Out 2\t1\tNote On\t60 (C4)\t100\r\n");
    EXPECT_EQ(stage.text(), "");
    stage.commands().postSetDisplayNumbers(true);
    stage.press("D4", 9, 2, 1);
    EXPECT_EQ(stage.text(), "") << "input is not shown, and takes no number";
    stage.playSlices();
    EXPECT_EQ(stage.text(), "+1  Out 1\t1\tNote On\t62 (D4)\t9\r\n");

    stage.commands().postSetDisplayMidiInputEvents(true);
    stage.commands().postSetDisplayMidiOutputEvents(false);
    for (const int input : {1, 7}) stage.arrive(noteOn(62, 0).channel(2).input(input));
    stage.playSlices();
    EXPECT_EQ(stage.text(), "+2  > In 2\t3\tNote On\t62 (D4)\t0\r\n")
        << "as it came, and from inputs alone that are there";
    stage.commands().postSetDisplayMidiOutputEvents(true);
    stage.commands().postSetDisplayNumbers(false);
    stage.rest();
    const TestEvent tick = event(MessageType::timingTick).channel(0);
    stage.orv->displayMidiInputEvent(tick.input(9));
    stage.orv->displayMidiOutputEvent(tick);
    stage.orv->displayMidiOutputEvent(tick.output(3));
    EXPECT_EQ(stage.text(), "+> ???\t\tTiming Tick\r\n???\t\tTiming Tick\r\n???\t\tTiming Tick\r\n");
    stage.commands().sendSetMidiOutputPorts(stage.outputs({"Other"}));
    stage.orv->displayMidiOutputEvent(tick.output(0));
    EXPECT_EQ(stage.text(), "+Other\t\tTiming Tick\r\n");
    stage.commands().postSetting(SETTING<Settings::DISPLAY_TIMES>(true));
    stage.rest();
    stage.orv->displayMidiOutputEvent(tick.output(0));
    EXPECT_TRUE(std::regex_match(stage.text(), std::regex(R"(\+\d\d:\d\d:\d\d\.\d{3}  Other\t\tTiming Tick\r\n)")));
}

TEST(Display, KeepsItsTextWithoutAListener)
{
    DisplayStage stage;
    stage.display.setListener(nullptr);
    stage.display.postResendText();
    stage.display.postUpdateListener();
    stage.display.postAddText("text\r\n");
    stage.display.setListener(&stage.listener);
    EXPECT_EQ(stage.text(), "+text\r\n") << "the banner was sent before";
}

TEST(Display, DeletesADroppedListenerBehindItsLastCall)
{
    struct LeavingListener final : DisplayListener {
        explicit LeavingListener(std::string& where) : received(where) {}
        ~LeavingListener() override { received += "gone"; }
        void addText(const char* text) override { received += text; }
        void setText(const char*) override {}
        std::string& received;
    };
    DisplayStage stage;
    std::string received;
    auto first = std::make_unique<LeavingListener>(received);
    stage.display.setListener(first.get());
    stage.display.postAddText("last");
    stage.display.postUpdateListener();
    stage.display.dropListener(std::move(first));
    stage.display.postAddText("text");
    stage.display.postUpdateListener();
    stage.rest();
    EXPECT_EQ(received, "lastgone");

    auto second = std::make_unique<LeavingListener>(received);
    stage.display.setListener(second.get());
    stage.display.setListener(&stage.listener);
    stage.display.dropListener(std::move(second));
    EXPECT_EQ(stage.text(), "+text") << "the one in its place stays";
}

TEST(ReceivedEvents, KeepAsManyKindsAsFit)
{
    ReceivedEvents received;
    for (int kind = 0; kind < 200; ++kind) received.add(controller(kind % 100, 1).channel(kind / 100).input(0));
    received.add(controller(0, 9).channel(0).input(0));
    received.add(controller(0, 9).channel(0).input(1));
    const auto& events = received.getEvents();
    ASSERT_EQ(events.size(), ReceivedEvents::MOST);
    EXPECT_EQ(events[0].getD2(), 9);
    EXPECT_EQ(events[1].getInput(), 1) << "in the place of the oldest";
}
