#include "backend/sections/oscillators/OscManager.h"
#include "gui/presets/PresetCtl.h"
#include "gui/screens/oscillators/OscCtl.h"
#include "tests/gui/ScreenStage.h"
#include "tests/stage/Text.h"

using namespace Backend;
using Gui::Oscillators::OscCtl;

/// A window with the screen of three oscillators that send controllers 1 to 3.
struct OscScreen : ScreenStage, testing::Test {
    OscScreen()
    {
        open(NO_SCREENS);
        gui->showScreen(Screen::oscillators, true);
        loadOscillators(sine("1", "stopValue='64'") + sine("2") + sine("3"));
        sent();
    }
    static std::string sine(const std::string& controller, const std::string& more = "")
    {
        return "<Oscillator detail='1' output='0' channel='0' midiMessage='Controller Change," + controller + "' " +
               more + "/>";
    }
    void loadOscillators(const std::string& all)
    {
        rest();
        manager().loadSection(rootOf("<Oscillators>" + all + "</Oscillators>"));
        settle();
    }
    Backend::Oscillators::OscManager& manager() { return orv->getOscManager(); }
    OscCtl& list() { return control<OscCtl>("Oscillators"); }
    void press(const QString& name)
    {
        Hands::click(control(name));
        settle();
    }
    void select(int row, Qt::KeyboardModifiers held = {})
    {
        QTest::mouseClick(&list(), Qt::LeftButton, held, list().getRowPlace(row).topLeft() + QPoint(10, 10));
        settle();
    }
    std::string row(int number)
    {
        settle();
        return list().getRowName(number).toStdString();
    }
    /// Those that run in the backend, by their numbers, and the speed of each.
    std::string state()
    {
        settle();
        std::string running, speeds;
        for (const auto& oscillator : manager().getOscillators().getOscillators()) {
            if (oscillator.playing) running += std::to_string(oscillator.id + 1);
            speeds += " " + std::to_string(oscillator.speed);
        }
        return running + ":" + speeds;
    }
};

TEST_F(OscScreen, StartsAndStopsThemAloneOrTogether)
{
    EXPECT_EQ(row(0), "Oscillator 1, Control Change 1: Modulation wheel, sin, 1/4");
    press("Oscillator 1 runs");
    const std::string wave = sent();
    EXPECT_EQ(wave.find("b0 01 40, b0 01 "), 0u) << wave;
    EXPECT_NE(row(0).find("sin, 1/4, running, value "), std::string::npos) << row(0);
    const QImage running = list().grab().toImage();
    press("Oscillator 1 runs");
    EXPECT_TRUE(sent().ends_with("b0 01 40, "));
    EXPECT_TRUE(row(0).ends_with("1/4, value 64"));
    EXPECT_NE(list().grab().toImage(), running);

    select(1), select(2, Qt::ControlModifier);
    press("Oscillator 3 runs");
    EXPECT_EQ(state(), "23: 480 480 480");
    EXPECT_NE(sent().find("b0 02 "), std::string::npos);
    gui->destroy();
    open();
    EXPECT_NE(row(1).find("running"), std::string::npos) << "a window that opens shows what runs";
    list().setFocus();
    key(Qt::Key_Space);
    EXPECT_EQ(state(), ": 480 480 480");
    key(Qt::Key_Space), key(Qt::Key_Up);
    EXPECT_FALSE(list().isRowSelected(2));
    key(Qt::Key_Up), key(Qt::Key_Space);
    EXPECT_EQ(state(), "123: 480 480 480");
    commands().postLoadProgramFromString(
        "<Bank><Program name='Other'><Oscillators>" + sine("9") + "</Oscillators></Program></Bank>", 0);
    EXPECT_EQ(row(0), "Oscillator 1, Control Change 9: Undefined, sin, 1/4") << "of another program";
    sent();
    EXPECT_EQ(sent(), "") << "those of before run no longer";
    EXPECT_EQ(list().getRowCount(), 1);
    EXPECT_EQ(state(), ": 480");
    manager().dataSelect({SelectType::Kind::specific, 0});
    settle();
    EXPECT_TRUE(list().isRowSelected(0)) << "a function has selected it";
}

TEST_F(OscScreen, SetsTheSpeedByKnobWheelMenuAndTyping)
{
    Hands::wheel(control("Oscillator 1 length"), 1);
    EXPECT_EQ(state(), ": 640 480 480") << "the next note length";
    EXPECT_EQ(undo(), "Undone: oscillator 1 speed");
    select(0), select(1, Qt::ShiftModifier);
    drag("Oscillator 2 speed", 2);
    EXPECT_EQ(state(), ": 443 443 480");
    auto& knob = control("Oscillator 2 speed");
    QTest::mousePress(&knob, Qt::RightButton);
    mouseMove(knob, knob.rect().center() + QPoint(0, 2), Qt::RightButton);
    QTest::mouseRelease(&knob, Qt::RightButton);
    EXPECT_EQ(state(), ": 492 492 480");
    EXPECT_EQ(control<QAbstractSlider>("Oscillator 1 speed").value(), 79);

    select(2);
    QTest::mouseClick(&control("Oscillator 3 length"), Qt::LeftButton);
    EXPECT_EQ(openMenu()->actions().size(), 22);
    choose("1/64 Triplet");
    EXPECT_EQ(state(), ": 492 492 40");
    EXPECT_EQ(status(), "The shortest cycle is 1/32 Triplet.");
    press("Oscillator 3 note or pulses");
    QTest::mouseClick(&control("Oscillator 3 length"), Qt::LeftButton);
    auto& pulses = *control("Oscillator 3 length").findChild<QLineEdit*>();
    replaceText(pulses, "1000");
    QTest::keyClick(&pulses, Qt::Key_Return);
    EXPECT_EQ(state(), ": 492 492 1000");
    EXPECT_TRUE(row(2).ends_with("1000 PPQ"));
}

TEST_F(OscScreen, EditsOneOrSeveralWithLimitsThatFollowTheEvent)
{
    const QPoint strip = list().getRowPlace(1).center();
    QContextMenuEvent click(QContextMenuEvent::Mouse, strip, list().mapToGlobal(strip));
    QApplication::sendEvent(&list(), &click);
    pick("Event", "Pitch Bend");
    type("Stop value", "99999");
    const auto written = [this](int id) { return manager().writeRecord(id); };
    EXPECT_NE(written(1).find(R"(min="0" max="16383" speedMode="noteInterval" stopValue="16383")"), std::string::npos)
        << written(1);
    pick("Event", "Controller Change");
    type("Maximum", "200");
    EXPECT_NE(written(1).find(R"(max="127" speedMode="noteInterval" stopValue="127")"), std::string::npos);
    type("Stop value", ""), type("Detail", "0"), type("Zone", "3");
    EXPECT_NE(written(1).find(R"(stopValue="-1" detail="1")"), std::string::npos) << written(1);
    EXPECT_NE(written(1).find(R"(zone="2")"), std::string::npos) << written(1);

    select(2, Qt::ControlModifier);
    pick("Type", "Random");
    EXPECT_EQ(undo(), "Undone: 2 oscillators type");
    Hands::click(control("Add oscillator"));
    settle();
    EXPECT_EQ(row(1), "Oscillator 2, No event, sin, 1/4");
    EXPECT_EQ(list().getCurrentRow(), 1);
    dynamic_cast<Gui::Preset::PresetGuiOwner&>(
        *Gui::Preset::PresetCtl::findAll(surroundings, PresetSections::OSCILLATORS)[0])
        .addPreset("One", true);
    settle();
    const std::string preset = flat(fileText(manager().getPresets().getPresetPath("One")));
    EXPECT_EQ(preset.find("Controller"), std::string::npos) << preset;
    press("Delete oscillators");
    EXPECT_EQ(list().getRowCount(), 3);
}
