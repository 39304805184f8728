#include <QPointingDevice>

#include "backend/sections/controls/ControlManager.h"
#include "gui/presets/PresetCtl.h"
#include "gui/screens/controls/ControlCell.h"
#include "gui/screens/controls/ControlGrid.h"
#include "tests/gui/ScreenStage.h"
#include "tests/stage/Text.h"

using namespace Backend;
using Gui::DragSlider;
using Gui::Controls::ControlGrid;

/// A window with the screen of the controls and the factory's set; arrows and Home select and change them.
struct ControlScreen : ScreenStage, testing::Test {
    ControlScreen()
    {
        open(NO_SCREENS);
        gui->showScreen(Screen::controls, true);
        const auto key = [](const char* name, const char* function) {
            return std::string("<Key id='") + name + "'><Function><Down><" + function + "/></Down></Function></Key>";
        };
        load(key("Up", "SelectControl type='up'") + key("Down", "SelectControl type='down'") +
             key("Left", "SelectControl type='left'") + key("Right", "SelectControl type='right'") +
             key("Home", "ChangeControl type='selected' value='+10'") + key("F", "SetWidgetFocus type='0,7'") +
             key("G", "SetWidgetFocus type='down'"));
        loadControls(fileText(ORVANE_CONTENT "/Default/Control Presets/000 - Default.pst"));
        gui->setFocus();
    }
    void loadControls(const std::string& text)
    {
        rest();
        controls().loadSection(rootOf(text));
        settle();
    }
    Backend::Controls::ControlManager& controls() { return orv->getControlManager(); }
    ControlGrid& grid() { return control<ControlGrid>("Controls"); }

    static QString valueOf(const QWidget& body)
    {
        if (const auto* slider = qobject_cast<const QAbstractSlider*>(&body))
            return ' ' + QString::number(slider->value());
        const auto* edit = qobject_cast<const QLineEdit*>(&body);
        return edit != nullptr ? ' ' + edit->text() : QString();
    }
    /// Each control by its cell, with its value and, if it is selected, a star.
    std::map<Cell, std::string> cells()
    {
        std::map<Cell, std::string> all;
        for (auto* cell : grid().findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
            if (cell->isHidden()) continue;
            const auto& body = *cell->findChild<QWidget*>();
            const QString mark = body.accessibleDescription().startsWith("selected") ? "*" : "";
            all[{cell->y() / 60, cell->x() / 58}] = (body.accessibleName() + valueOf(body) + mark).toStdString();
        }
        return all;
    }
    /// Once the values are those of the backend.
    std::string shown()
    {
        settle();
        playSlices();
        settle();
        std::string text;
        const auto isUpToDate = [&] {
            text.clear();
            for (const auto& [cell, content] : cells()) {
                text += cell.toXmlString() + ' ' + content + '\n';
                const auto* control = controls().getControls().findElement(cell);
                const std::string value = control->type.sends() ? ' ' + std::to_string(control->value) : "";
                if (content.find(value) == std::string::npos) return false;
            }
            return true;
        };
        EXPECT_TRUE(QTest::qWaitFor(isUpToDate)) << text;
        return text;
    }
    std::string shown(const std::string& row)
    {
        const std::string all = shown();
        const auto begin = all.find(row + " ");
        return begin == std::string::npos ? "" : all.substr(begin, all.find('\n', begin) - begin);
    }
    void keyOf(quint32 place)
    {
        keyDown(place, 0), keyUp(place, 0);
        settle();
    }
    static QPoint middle(int row, int col) { return {col * 58 + 28, row * 60 + 30}; }
    void dragCell(QPoint from, QPoint to)
    {
        QTest::mousePress(&grid(), Qt::LeftButton, {}, from);
        mouseMove(grid(), to);
        QTest::mouseRelease(&grid(), Qt::LeftButton, {}, to);
        settle();
    }
};

TEST_F(ControlScreen, ShowsTheFactorySetAndPlaysItByMouseWheelTypingAndTwoFingers)
{
    EXPECT_EQ(
        shown(),
        "0,0 PB 8192\n0,1 MW 0\n0,2 VOL 100\n0,3 SUST 0\n0,4 AFT 0\n0,5 B MSB 0\n0,6 B LSB 0\n0,7 PROG 0\n"
        "2,0 Pitch Bend 8192\n2,1 Control Change 1: Modulation wheel 0\n2,2 Control Change 7: Channel Volume 100\n"
        "2,3 PAN 64\n2,4 Channel Pressure 0\n");
    for (const auto* slider : grid().findChildren<DragSlider*>())
        EXPECT_GE(std::min(slider->width(), slider->height()), 40);
    sent();
    drag("MW", 3);
    EXPECT_EQ(sent(), "b0 01 01, b0 01 02, b0 01 03, ");
    EXPECT_EQ(shown("2,1"), "2,1 Control Change 1: Modulation wheel 3") << "its edit follows";
    drag("PB", 2);
    EXPECT_EQ(sent(), "e0 00 41, e0 00 42, e0 00 40, ") << "let go, it returns";
    EXPECT_EQ(shown("0,0"), "0,0 PB 8192*");
    Hands::wheel(control("PAN"), -2);
    EXPECT_EQ(sent(), "b0 0a 3e, ");
    type("Channel Pressure", "200");
    EXPECT_EQ(sent(), "d0 7f 00, ");
    EXPECT_EQ(shown("0,4"), "0,4 AFT 127");

    const std::unique_ptr<QPointingDevice> screen(QTest::createTouchDevice());
    auto &volume = control<DragSlider>("VOL"), &sustain = control<DragSlider>("SUST");
    const QPoint start = volume.rect().center();
    const auto touch = [&] { return QTest::touchEvent(&volume, screen.get()); };
    touch().press(1, start, &volume).press(2, start, &sustain);
    touch().move(1, start + QPoint(0, 10), &volume).stationary(2);
    EXPECT_EQ(sent(), "b0 07 5a, ");
    touch().stationary(1).move(2, start - QPoint(0, 20), &sustain);
    EXPECT_EQ(sent(), "b0 40 14, ");
    touch().release(1, start + QPoint(0, 10), &volume).release(2, start - QPoint(0, 20), &sustain);
    commands().postPlayMidi(controller(64, 127).channel(-1));
    EXPECT_EQ(shown("0,3").find("0,3 SUST 127"), 0u) << "it follows";
    loadControls(
        "<Controls><Control cell='0,0' type='vfader' name='Reversed' min='127' max='0' value='127'/></Controls>");
    drag("Reversed", 7);
    EXPECT_EQ(shown(), "0,0 Reversed 120*\n");
}

TEST_F(ControlScreen, IsSelectedAndChangedByTheKeysOfTheProgram)
{
    keyOf(Key::RIGHT), keyOf(Key::RIGHT);
    EXPECT_EQ(shown("0,1"), "0,1 MW 0*");
    keyOf(Key::DOWN), keyOf(Key::HOME);
    EXPECT_EQ(sent(), "b0 01 0a, ");
    EXPECT_EQ(shown("2,1"), "2,1 Control Change 1: Modulation wheel 10*");
    EXPECT_EQ(shown("0,1"), "0,1 MW 10");
    keyOf(Key::LEFT), keyOf(Key::LEFT);
    EXPECT_EQ(shown("0,7"), "0,7 PROG 0*");
    keyOf(Key::DOWN), keyOf(Key::UP);
    EXPECT_EQ(shown("0,7"), "0,7 PROG 0*") << "the column has no other";

    keyOf('F');
    EXPECT_EQ(focus().accessibleName(), "PROG");
    QTest::keyClicks(&focus(), "12");
    EXPECT_EQ(sent(), "") << "it is typed";
    key(Qt::Key_Return);
    EXPECT_EQ(sent(), "b0 00 00, b0 20 00, c0 0c 00, ");
    EXPECT_TRUE(isPlaying());
    QTest::mouseClick(control("PAN").parentWidget(), Qt::LeftButton, {}, {10, 6});
    keyOf('G');
    EXPECT_EQ(status(), "There is no edit.");
    gui->showScreen(Screen::controls, false);
    keyOf('F');
    EXPECT_EQ(status(), "The controls are not shown.");
}

TEST_F(ControlScreen, MovesThoseThatAreSelectedTogether)
{
    const auto fader = [](int column, int value) {
        return "<Control cell='0," + std::to_string(column) + "' type='vfader' name='F" + std::to_string(column) +
               "' value='" + std::to_string(value) + "'><Function midiEvent='Controller Change," +
               std::to_string(column) + "'/></Control>";
    };
    loadControls("<Controls>" + fader(1, 10) + fader(2, 50) + fader(3, 100) + fader(4, 7) + "</Controls>");
    const auto click = [&](const QString& name, Qt::KeyboardModifiers held) {
        QTest::mouseClick(&control(name), Qt::LeftButton, held);
        settle();
    };
    click("F1", {}), click("F3", Qt::ShiftModifier);
    sent();
    drag("F2", -20);
    EXPECT_EQ(shown(), "0,1 F1 0*\n0,2 F2 30*\n0,3 F3 90*\n0,4 F4 7\n");
    EXPECT_EQ(sent().find("b0 02 31, b0 01 09, b0 03 63, b0 02 30, "), 0u);
    click("F1", Qt::ControlModifier);
    drag("F3", 5);
    EXPECT_EQ(shown(), "0,1 F1 0\n0,2 F2 35*\n0,3 F3 95*\n0,4 F4 7\n");
    drag("F4", 1);
    EXPECT_EQ(shown(), "0,1 F1 0\n0,2 F2 35\n0,3 F3 95\n0,4 F4 8*\n");
}

TEST_F(ControlScreen, IsArrangedByMouseAndKeysWithUndo)
{
    loadControls(
        "<Controls><Control cell='0,0' type='vfader' name='A' size='2'/><Control cell='0,1' type='knob' "
        "name='B'/><Control cell='3,1' type='knob' name='C' selected='true'/></Controls>");
    Hands::click(control("Edit controls"));
    sent();
    dragCell(middle(0, 1), middle(1, 2));
    EXPECT_EQ(shown(), "0,0 A 0\n1,2 B 0*\n3,1 C 0\n");
    dragCell(middle(1, 2), middle(1, 0));
    EXPECT_EQ(status(), "Another control is there.");
    dragCell({28, 115}, middle(5, 0));
    EXPECT_EQ(control("A").parentWidget()->height(), 6 * 60 - 2);
    dragCell(middle(0, 0), middle(0, 1));
    EXPECT_EQ(status(), "Another control is there.") << "C, as large as it is now";
    EXPECT_EQ(undo(), "Undone: control A size in cells");
    EXPECT_EQ(undo(), "Undone: control B place");
    EXPECT_EQ(shown(), "0,0 A 0\n0,1 B 0*\n3,1 C 0\n");

    grid().setFocus();
    key(Qt::Key_Down, Qt::AltModifier), key(Qt::Key_Down, Qt::AltModifier);
    key(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(shown(), "0,0 A 0\n2,1 B 0*\n3,1 C 0*\n");
    key(Qt::Key_Left, Qt::AltModifier), key(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(status(), "The grid has 16 rows and 16 columns.");
    key(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(shown(), "0,0 A 0\n2,0 B 0\n2,1 B 0*\n3,0 C 0\n3,1 C 0*\n");
    key(Qt::Key_Delete);
    EXPECT_EQ(shown(), "0,0 A 0\n2,0 B 0\n3,0 C 0\n");
    undo();
    key(Qt::Key_C, Qt::ControlModifier), key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(shown(), "0,0 A 0\n2,0 B 0\n2,1 B 0\n2,2 B 0*\n3,0 C 0\n3,1 C 0\n3,2 C 0*\n");
    EXPECT_EQ(sent(), "");
}

TEST_F(ControlScreen, IsSetAndLearnedForOneOrSeveral)
{
    loadControls("<Controls/>");
    Hands::click(control("Add control"));
    settle();
    pick("Type", "Label");
    type("Caption", "Strings");
    EXPECT_EQ(shown(), "0,0 Strings*\n");
    commands().postExecuteFunction("<SendControlData type='all'/>");
    EXPECT_EQ(sent(), "");

    QTest::mouseClick(&grid(), Qt::LeftButton, {}, middle(0, 1));
    pick("Type", "Horizontal fader");
    Hands::click(control("Learn"));
    settle();
    arrive(event(MessageType::pitchBend, 0, 0x40).channel(2).input(0));
    EXPECT_EQ(sent(), "") << "it was learned";
    type("On release", "8192"), type("Maximum", "99999");
    arrive(event(MessageType::pitchBend, 0, 0x20).channel(2).input(0));
    EXPECT_EQ(shown("0,1"), "0,1 Pitch Bend 4096*") << "it follows the device";
    EXPECT_EQ(control<QLineEdit>("Value").text(), "4096");
    type("Size in cells", "3"), type("Events", "2");
    pick("Event 2", "Controller Change");
    type("Zone 2", "3");
    Hands::click(control("Edit controls"));
    settle();
    sent();
    QTest::keyClick(&control("Pitch Bend"), Qt::Key_Right);
    EXPECT_EQ(sent(), "e0 00 21, b0 00 80, ");
    Hands::click(control("Edit controls"));
    dynamic_cast<Gui::Preset::PresetGuiOwner&>(
        *Gui::Preset::PresetCtl::findAll(surroundings, PresetSections::CONTROLS)[0])
        .addPreset("One", true);
    settle();
    const std::string preset = flat(fileText(controls().getPresets().getPresetPath("One")));
    EXPECT_NE(preset.find("<Controls merge='true'><Control cell='0,1' type='hfader'"), std::string::npos) << preset;
    QTest::mouseClick(&grid(), Qt::LeftButton, {}, middle(0, 0));
    QTest::mouseClick(&grid(), Qt::LeftButton, Qt::ControlModifier, middle(0, 1));
    type("Caption", "Both");
    EXPECT_EQ(shown(), "0,0 Both*\n0,1 Both 4224*\n");
    EXPECT_EQ(undo(), "Undone: 2 controls caption");
}
