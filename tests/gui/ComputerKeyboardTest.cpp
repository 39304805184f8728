#include <gtest/gtest.h>

#include <QAccessible>
#include <QCheckBox>
#include <QLineEdit>

#include "backend/bindings/functions/FunctionEnumerator.h"
#include "backend/bindings/functions/FunctionFactories.h"
#include "backend/files/RegistrySettings.h"
#include "backend/messages/GuiMessages.h"
#include "backend/model/Function.h"
#include "gui/framework/GuiMessageManagerMaster.h"
#include "gui/keyboard/GlobalKeyboard.h"
#include "gui/keyboard/KeyPresses.h"
#include "gui/screens/computerinput/ComputerKeyboardCtl.h"
#include "gui/screens/computerinput/FunctionCaption.h"
#include "keyboardhook/KeyboardHookMessages.h"
#include "tests/gui/GuiStage.h"
#include "tests/gui/WindowStage.h"

namespace
{
using namespace Gui::ComputerInput;
using Backend::Screen;
using Role = Gui::GdiManager::Role;

struct KeyboardWindow : WindowStage {
    explicit KeyboardWindow(const std::string& keys = noteKey("Q", "C4") + noteKey("Shift Q", "D4"),
                            const std::string& attributes = "")
    {
        gui->showScreen(Screen::computerInput, true);
        load(keys, attributes);
        settle();
    }
    ComputerKeyboardCtl& keyboard() { return control<ComputerKeyboardCtl>("Computer keyboard"); }
    void mouseDown(int code) { GuiStage::press(keyboard(), keyboard().getPlace(code)); }
    void mouseUp(int code) { GuiStage::release(keyboard(), keyboard().getPlace(code)); }
    /// Between the two texts of a key.
    QColor colour(int code)
    {
        const QImage picture = keyboard().grab().toImage();
        return picture.pixelColor(picture.devicePixelRatio() * (keyboard().getPlace(code) + QPoint(12, 0)));
    }
    void hook(unsigned int number, KeyboardHook::KeyEvent event)
    {
        Message message = event.toMessage(static_cast<KeyboardHook::Number>(number));
        gui->getGuiMessageManagerMaster().handleMessage(message);
    }
};

TEST(ComputerKeyboard, ShowsWhatItsKeysDoInTheBackend)
{
    KeyboardWindow window;
    auto& keyboard = window.keyboard();
    EXPECT_EQ(keyboard.getCaption('Q'), "C4");
    EXPECT_EQ(keyboard.getCaption('W'), "");
    EXPECT_EQ(keyboard.getHelp('W').toStdString(), "W: does nothing.");
    EXPECT_EQ(keyboard.getHelp('Q').toStdString(),
              "Q\nDown: Midi Note On: output 0, channel 0, note C4, velocity 100\n"
              "Up: Midi Note Off: output 0, channel 0, note C4, velocity 100");
    EXPECT_EQ(window.colour('Q'), window.gui->getGdiManager().getColour(Role::unselectedButton));
    EXPECT_EQ(window.colour('W'), window.gui->getGdiManager().getColour(Role::background));

    Backend::ComputerInput::KeyConfiguration reset(Key{.keyCode = 'Q'});
    reset.global = false;
    reset.setDownFunction(Backend::FunctionManagement::createFunction("ResetOrv", *window.orv), 0);
    window.orv->getComputerInputMessageManager().postSetKeyConfigurations({reset}, true);
    window.settle();
    EXPECT_EQ(keyboard.getCaption('Q'), "Reset");
    EXPECT_EQ(keyboard.getHelp('Q').toStdString(), "Q\nDown: Reset ORV\nOther programs keep this key.");

    window.load("", "useKeyUpMod='true'");
    window.settle();
    EXPECT_EQ(keyboard.getCaption('Q'), "");
    EXPECT_TRUE(window.surroundings.findChild<QCheckBox*>()->isChecked());
}

TEST(ComputerKeyboard, NamesThePresetOfTheKeys)
{
    KeyboardWindow window;
    auto& name = window.control<QLineEdit>("Preset of the keys");
    EXPECT_EQ(name.text(), "none");
    window.writePreset("Piano", "<ComputerInput>" + noteKey("A", "F4") + "</ComputerInput>");
    window.orv->getComputerInputMessageManager().postLoadPreset("Piano");
    window.settle();
    EXPECT_EQ(name.text(), "Piano");
    EXPECT_EQ(window.keyboard().getCaption('A'), "F4");
}

TEST(ComputerKeyboard, LightsTheKeysThatAreDownAndFollowsTheModifiers)
{
    KeyboardWindow window;
    constexpr quint32 LEFT_SHIFT = 50;
    window.keyDown(LEFT_SHIFT, Qt::Key_Shift);
    EXPECT_EQ(window.keyboard().getCaption('Q'), "D4");
    window.keyDown(24, Qt::Key_Q, Qt::ShiftModifier);
    EXPECT_EQ(window.colour('Q'), window.gui->getGdiManager().getColour(Role::selectedButton));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&window.keyboard())->text(QAccessible::Value), "Left Shift, Q");
    window.keyUp(24, Qt::Key_Q, Qt::ShiftModifier), window.keyUp(LEFT_SHIFT, Qt::Key_Shift, Qt::ShiftModifier);
    EXPECT_EQ(window.keyboard().getCaption('Q'), "C4");
    EXPECT_EQ(window.keyboard().getAccessibleValue(), "");
    window.keyDown(24);
    window.gui->clearComputerKeyboardHilight();
    EXPECT_EQ(window.keyboard().getAccessibleValue(), "");
}

TEST(ComputerKeyboard, PlaysUnderTheMouse)
{
    KeyboardWindow window;
    window.mouseDown('Q');
    EXPECT_EQ(window.playedNow(), "C4 on");
    EXPECT_EQ(window.keyboard().getAccessibleValue(), "Q");
    window.mouseUp('W');
    EXPECT_EQ(window.playedNow(), "C4 off") << "wherever it is let go";
    EXPECT_EQ(window.keyboard().getAccessibleValue(), "");
}

TEST(ComputerKeyboard, LeavesNoNoteWhenItGoes)
{
    KeyboardWindow window;
    window.mouseDown('Q');
    window.gui->showScreen(Screen::computerInput, false);
    EXPECT_EQ(window.playedNow(), "C4 on, C4 off");
    window.gui->showScreen(Screen::computerInput, true);
    window.mouseDown('Q');
    window.gui->destroy();
    EXPECT_EQ(window.playedNow(), "C4 on, C4 off");
}

TEST(ComputerKeyboard, AskForModifiersOnRelease)
{
    KeyboardWindow window;
    QTest::mouseClick(window.surroundings.findChild<QCheckBox*>(), Qt::LeftButton, {}, {215, 11});
    window.rest();
    EXPECT_TRUE(window.keys().getUseKeyUpMod());
}

TEST(ComputerKeyboard, HasAFewLettersForEveryFunction)
{
    Stage stage;
    class Types final : public Backend::FunctionManagement::FunctionEnumerator
    {
    public:
        void addFunction(const Backend::FunctionInfo& function) override { names.push_back(function.typeName); }
        std::vector<std::string_view> names;
    } types;
    enumerateFunctions(types);
    for (const auto type : types.names) {
        const auto function = Backend::FunctionManagement::createFunction(type, *stage.orv);
        if (function == nullptr) continue;
        const QString caption = FunctionCaption::shortNameOf(*function);
        EXPECT_FALSE(caption.isEmpty()) << type;
        EXPECT_LE(caption.size(), 7) << type;
    }
    struct Row {
        const char* xml;
        const char* caption;
    };
    for (const auto& [xml, caption] : {
             Row{"<MidiNoteOff note='C#3'/>", "Off C#3"},
             Row{"<MidiControllerChange controller='64'/>", "CC64"},
             Row{"<ChangeZoneTranspose type='selected' value='-12'/>", "ZT-12"},
             Row{"<ChangeControl type='selected' value='127'/>", "Ctl 127"},
             Row{"<SelectControl type='left'/>", "Sel lf"},
             Row{"<ChangeProgram type='up'/>", "Prog+"},
         }) {
        const XmlDocument document(xml, XmlDocument::Source::text);
        const auto function = Backend::FunctionManagement::createFunctionFromXml(document.getRoot(), *stage.orv);
        EXPECT_EQ(FunctionCaption::shortNameOf(*function), caption);
    }
}

TEST(GlobalKeyboard, KeysOfOtherProgramsPlayOnceThoughOursAreHeld)
{
    KeyboardWindow window;
    window.hook(KeyboardHook::KEY_DOWN, {.scanCode = 24});
    window.hook(KeyboardHook::KEY_DOWN, {.scanCode = 24, .repeat = true});
    EXPECT_EQ(window.keyboard().getAccessibleValue(), "Q");
    QWidget other;
    other.show(), other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_EQ(window.playedNow(), "C4 on") << "our focus has nothing to do with it";
    window.hook(KeyboardHook::KEY_UP, {.scanCode = 24, .modifiers = KeyboardHook::SHIFT});
    EXPECT_EQ(window.playedNow(), "C4 off");
}

TEST(GlobalKeyboard, TakesWhatDoesSomethingAndLeavesTheRest)
{
    const auto key = [](const std::string& attributes, const std::string& function) {
        return "<Key " + attributes + "><Function><Down>" + function + "</Down></Function></Key>";
    };
    const std::string toggle = "<ChangeGlobalKeyboard type='toggle'/>";
    KeyStage stage;
    stage.load(noteKey("Q", "C4") + noteKey("Shift W", "C4") + key("id='E' global='false'", "<ResetOrv/>") +
               "<Key id='R'/>" + key("id='F12'", toggle) + key("id='F11'", "<ChangeGlobalKeyboard type='on'/>") +
               key("id='F10' global='false'", toggle) + key("id='F9'", toggle) + noteKey("Control F9", "D4") +
               key("id='Shift F8'", toggle));
    const auto excluded = Gui::GlobalKeyboard::findExcluded(stage.keys().getKeys());
    std::string taken;
    for (const int code : {int{'Q'}, int{'W'}, int{'E'}, int{'R'}, int{'T'}, 123, 122, 121, 120, 119, 16})
        if (!excluded.contains(code)) taken += Key{.keyCode = code}.toXmlString() + " ";
    EXPECT_EQ(taken, "Q W F12 F11 F9 F8 ");
    EXPECT_EQ(Gui::GlobalKeyboard::findControlKeys(stage.keys().getKeys()), Gui::GlobalKeyboard::Codes{123});
}

TEST(GlobalKeyboard, IsSwitchedByItsKeyAndKept)
{
    KeyboardWindow window;
    window.hook(KeyboardHook::UD_KEYBOARDHOOK_GLOBAL_KEY_CHANGED, {.scanCode = 1});
    window.settle();
    EXPECT_TRUE(window.gui->getRegistrySettings().getGlobalKeyboard());
    EXPECT_TRUE(window.orv->getRegistrySettings().getGlobalKeyboard());
}
}  // namespace
