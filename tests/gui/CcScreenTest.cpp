#include "backend/messages/SettingMessages.h"
#include "gui/framework/ComboBox.h"
#include "gui/screens/cc/SentValues.h"
#include "tests/gui/ScreenStage.h"

/// The controllers of a channel, below the piano.
struct CcScreen : ScreenStage, testing::Test {
    CcScreen() { open({.system = false, .help = false, .computerInput = false, .output = true, .cc = true}); }

    Gui::ComboBox& choices(const char* name) { return control<Gui::ComboBox>(name); }
    bool comesTo(int value, const char* fader)
    {
        return QTest::qWaitFor([&] { return control<Gui::DragSlider>(fader).value() == value; });
    }
};

TEST_F(CcScreen, SendsToItsOutputAndChannelAndFollowsWhatIsSentThere)
{
    EXPECT_EQ(choices("Program of the channel").text(), "") << "unknown";
    pick("Channel of the controllers", "3");
    pick("Program of the channel", "Acoustic Grand");
    EXPECT_EQ(sent(), "c2 00 00, ");
    pick("Bank MSB", "1");
    sent();
    pick("Bank LSB", "2");
    EXPECT_TRUE(sent().ends_with("b2 00 01, b2 20 02, c2 00 00, "));
    EXPECT_EQ(choices("Bank MSB").text(), "1");

    for (int step = 0; step < 3; ++step) QTest::keyClick(&control("7 Channel Volume"), Qt::Key_Right);
    EXPECT_EQ(sent(), "b2 07 01, b2 07 02, b2 07 03, ");
    play(event(MessageType::controllerChange, 7, 90).output(0).channel(2));
    EXPECT_EQ(sent(), "b2 07 5a, ");
    EXPECT_TRUE(comesTo(90, "7 Channel Volume")) << "played elsewhere";
    play(event(MessageType::controllerChange, 7, 20).output(0).channel(1));
    sent();
    pick("Channel of the controllers", "2");
    EXPECT_TRUE(comesTo(20, "7 Channel Volume"));

    control<QPushButton>("Reset all controllers").click();
    EXPECT_EQ(sent(), "b1 79 00, ");
    EXPECT_TRUE(comesTo(127, "11 Expression Controller"));
    EXPECT_TRUE(comesTo(20, "7 Channel Volume")) << "stays";
    EXPECT_EQ(undo(), "Nothing to undo") << "it is playing";
}

TEST_F(CcScreen, KeepsItsRowsForTheNextWindow)
{
    control<QPushButton>("Add a controller").click();
    pick("Controller 1", "74 Sound Ctl 5 (Brightness)");
    control<QPushButton>("Remove 10 Pan").click();
    settle();
    EXPECT_EQ(settings().get<Backend::Settings::CC_CONTROLLERS>(), "7,11,64,91,93,74");
    reopen();
    EXPECT_NO_THROW(choices("Controller 74"));
    EXPECT_THROW(choices("Controller 10"), std::runtime_error);
    commands().postSetting(Backend::SETTING<Backend::Settings::CC_CONTROLLERS>("1,x,300,-4,2"));
    settle();
    EXPECT_NO_THROW(choices("Controller 2"));
    EXPECT_THROW(choices("Controller 7"), std::runtime_error);
}

TEST(SentValues, KeepAnOwnValueUntilItsOwnReportArrives)
{
    Gui::Cc::SentValues values;
    const auto bank = [](int value) { return event(MessageType::controllerChange, 0, value).output(1).channel(2); };
    values.takeOwn(bank(0));
    values.takeOwn(bank(1));
    EXPECT_FALSE(values.take(bank(0))) << "the first one's report";
    EXPECT_EQ(values.getController({.output = 1, .channel = 2}, 0), 1);
    EXPECT_TRUE(values.take(bank(1)));
    EXPECT_TRUE(values.take(bank(0))) << "of somebody else";
    EXPECT_EQ(values.getController({.output = 1, .channel = 2}, 0), 0);
}
