#include <QContextMenuEvent>

#include "backend/sections/joystick/JoystickManager.h"
#include "gui/screens/joystick/AxisCurve.h"
#include "gui/screens/joystick/GridCtl.h"
#include "gui/screens/joystick/PartsCtl.h"
#include "tests/gui/BindingStage.h"
#include "tests/sections/VirtualJoystick.h"
#include "tests/stage/Text.h"

using namespace Backend;
using Gui::Joystick::AxisCurve;
using Gui::Joystick::GridCtl;
using Gui::Joystick::PartsCtl;

/// A window with the screen of the joysticks, on which nothing is bound.
struct JoystickScreen : BindingStage, testing::Test {
    JoystickScreen()
    {
        open(NO_SCREENS);
        gui->showScreen(Screen::joystick, true);
        settle();
    }

    void load(const std::string& element)
    {
        rest();
        joysticks().loadSection(rootOf(element));
        settle();
    }
    Joystick::JoystickManager& joysticks() { return orv->getJoystickManager(); }
    std::string saved()
    {
        settle();
        return flat(writtenBy([&](std::ostream& out) { joysticks().writeInProgram(out, 0); }));
    }
    std::string preset(const std::string& name)
    {
        return fileText(ORVANE_CONTENT "/Default/Joystick Presets/" + name + ".pst");
    }

    GridCtl& grid() { return control<GridCtl>("Joystick 1 X and Y"); }
    std::string point() { return grid().getAccessibleValue().toStdString(); }
    void mouse(QWidget& target, QEvent::Type type, QPoint place, Qt::MouseButton button = Qt::LeftButton)
    {
        const auto held = type == QEvent::MouseButtonRelease ? Qt::NoButton : button;
        QMouseEvent event(type, place, target.mapToGlobal(place), button, held, Qt::NoModifier);
        QApplication::sendEvent(&target, &event);
        settle();
    }
    void clickPart(const QString& parts, int row, Qt::KeyboardModifiers held = {})
    {
        auto& cells = control<PartsCtl>(parts);
        QTest::mouseClick(&cells, Qt::LeftButton, held, cells.getRowPlace(row).center());
        settle();
    }
    std::string device(int joystick)
    {
        settle();
        const QString begin = QString("Joystick %1: ").arg(joystick);
        for (const auto* label : surroundings.findChildren<QLabel*>())
            if (label->text().startsWith(begin)) return label->text().mid(begin.size()).toStdString();
        return "none";
    }
    void expectDevice(int joystick, const std::string& name)
    {
        constexpr int PATIENCE = 60'000;
        EXPECT_TRUE(QTest::qWaitFor([&] { return device(joystick) == name; }, PATIENCE)) << device(joystick);
    }
    /// Of the devices, which are read on a thread of their own.
    void expectHeard(const std::string& wanted)
    {
        constexpr int PATIENCE = 60'000;
        std::string all;
        EXPECT_TRUE(QTest::qWaitFor(
            [&] {
                const std::string now = played();
                if (!now.empty()) all += (all.empty() ? "" : ", ") + now;
                return all.size() >= wanted.size();
            },
            PATIENCE));
        EXPECT_EQ(all, wanted);
    }
};

TEST_F(JoystickScreen, APresetIsPlayedByTheStickAndByTheMouse)
{
    const Plugs plugs;
    if (SDL_NumJoysticks() > 0) GTEST_SKIP() << "a joystick is plugged in";
    load(preset("001 - Bend and Modulation"));
    load(
        "<Joystick merge='true'><Axis joystick='1' axis='X'><Function midiEvent='Controller "
        "Change,7'/></Axis></Joystick>");
    EXPECT_EQ(device(1), "not connected");
    orv->startJoysticks();
    VirtualJoystick stick, second;
    expectDevice(1, "Virtual"), expectDevice(2, "Virtual");
    takePlayed();

    stick.axis(0, 32767), stick.axis(1, -32768);
    expectHeard("Pitch Bend 127 127, Controller Change 1 127");
    EXPECT_EQ(point(), "X 100 %, Y 100 %");
    mouse(grid(), QEvent::MouseButtonPress, grid().rect().bottomLeft());
    EXPECT_EQ(played(), "Pitch Bend 0 0, Controller Change 1 0");
    EXPECT_EQ(point(), "X 0 %, Y 0 %");
    mouse(grid(), QEvent::MouseMove, grid().rect().bottomRight());
    mouse(grid(), QEvent::MouseButtonRelease, grid().rect().bottomRight());
    EXPECT_EQ(played(), "Pitch Bend 127 127, Controller Change 1 0");
    key(grid(), Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_EQ(played(), "Controller Change 1 16");
    key(grid(), Qt::Key_Home);
    EXPECT_EQ(played(), "Pitch Bend 0 64, Controller Change 1 64");

    operate("Joystick 1 on");
    stick.axis(0, -32768);
    second.axis(0, 32767);  // is read after it
    expectHeard("Controller Change 7 127");
    EXPECT_NE(saved().find("<DisabledInputs>0</DisabledInputs>"), std::string::npos) << saved();
    key(grid(), Qt::Key_Right);
    EXPECT_EQ(played(), "Pitch Bend 0 66") << "the grid plays on";
    undo();
    EXPECT_TRUE(control<QCheckBox>("Joystick 1 on").isChecked());
    stick.axis(0, 0);
    expectHeard("Pitch Bend 0 64");

    gui->destroy();
    open();
    EXPECT_EQ(device(1), "Virtual") << "a window that opens later shows it, too";
    stick.unplug();
    expectDevice(1, "not connected");
    EXPECT_EQ(device(2), "Virtual");
}

TEST_F(JoystickScreen, AButtonBoundInTheWindowPlaysByTheMouse)
{
    const std::string before = saved();
    auto& cells = control<PartsCtl>("Buttons");
    const QPoint third = cells.getRowPlace(2).center();
    QContextMenuEvent menu(QContextMenuEvent::Mouse, third, cells.mapToGlobal(third));
    QApplication::sendEvent(&cells, &menu);
    choose("Midi Note On");
    type("Note", "C5");
    EXPECT_EQ(rows("Entries"),
              "1 down: Midi Note On: note C5, velocity 100\n1 up: Midi Note Off: note C5, velocity 100\n");
    EXPECT_NE(control("Buttons").accessibleDescription(), "");
    mouse(cells, QEvent::MouseButtonPress, third);
    EXPECT_EQ(played(), "") << "it selects";
    mouse(cells, QEvent::MouseButtonRelease, third);
    operate("Edit joysticks");
    mouse(cells, QEvent::MouseButtonPress, third);
    EXPECT_EQ(played(), "C5 on");
    mouse(cells, QEvent::MouseButtonRelease, third);
    EXPECT_EQ(played(), "C5 off");

    operate("Edit joysticks");
    key(cells, Qt::Key_C, Qt::ControlModifier);
    clickPart("Buttons", 34), clickPart("Buttons", 36, Qt::ShiftModifier);
    key(cells, Qt::Key_V, Qt::ControlModifier);
    const std::string bound = saved();
    EXPECT_EQ(cells.getRowName(36).toStdString().find("Joystick 2 button 1\n"), 0u) << "the last of three";
    load("<Joystick/>");
    EXPECT_EQ(saved(), before);
    load(bound);
    EXPECT_EQ(saved(), bound);
    undo();
    for (int i = 0; i < 3; ++i) key(cells, Qt::Key_Down);
    EXPECT_EQ(cells.getRowName(cells.getCurrentRow()).toStdString(), "Joystick 2 button 25: does nothing.");
}

TEST_F(JoystickScreen, AxesAreEditedTogetherByTheKeyboard)
{
    clickPart("Axes", 0), clickPart("Axes", 6, Qt::ControlModifier);
    const auto values = [&] { return control<AxisCurve>("Curve of the axis").getAccessibleValue().toStdString(); };
    EXPECT_EQ(values(), "No event");
    pick("Event", "Pitch Bend");
    EXPECT_EQ(rows("Entries"), "1: Pitch Bend, 0 to 16383\n") << "the limits follow the event";
    type("Minimum", "20000");
    type("Maximum", "0");
    EXPECT_EQ(values(),
              "16383 at one end, 12287 at a quarter, 8191 in the middle, 4096 at three quarters, 0 at the other end");
    pick("Event", "Controller Change");
    type("Offset", "-32");
    EXPECT_EQ(values(), "127 at one end, 127 at a quarter, 63 in the middle, 0 at three quarters, 0 at the other end");
    pick("Channel", "3");
    operate("Add entry");
    EXPECT_EQ(rows("Entries"), "1: Controller Change 0 Bank Select (MSB), 127 to 0\n2: None\n");
    operate("Remove entry");
    const std::string both = saved();
    const std::string function =
        "<Function midiEvent='Controller Change,0' output='-1' channel='2' zone='-1' min='127' max='0' offset='-32'/>";
    for (const std::string joystick : {"0", "1"})
        EXPECT_NE(both.find("<Axis joystick='" + joystick + "' axis='X'>" + function + "</Axis>"), std::string::npos)
            << both;
    key(control("Axes"), Qt::Key_Delete);
    EXPECT_EQ(saved().find("<Axis"), std::string::npos);
    undo();
    EXPECT_EQ(saved(), both) << "both in one step";
    operate("Learn");
    commands().postJoystickAxis(1, 2, 32768), commands().postJoystickAxis(1, 2, 65535);
    settle();
    EXPECT_TRUE(control<PartsCtl>("Axes").isRowSelected(8)) << "it was learned by moving it";
}
