#include "backend/bindings/functions/FunctionEnumerator.h"
#include "backend/bindings/functions/FunctionFactories.h"
#include "backend/model/Function.h"
#include "gui/forms/FunctionCaption.h"
#include "gui/keyboard/GlobalKeyboard.h"
#include "gui/screens/computerinput/ComputerKeyboardCtl.h"
#include "keyboardhook/KeyboardHookMessages.h"
#include "tests/gui/WindowStage.h"

using namespace Backend::FunctionManagement;
using namespace Gui::ComputerInput;
namespace FunctionCaption = Gui::Forms::FunctionCaption;
using Role = Gui::GdiManager::Role;

struct ComputerKeyboard : WindowStage, testing::Test {
    ComputerKeyboard()
    {
        open();
        load(noteKey("Q", "C4") + noteKey("Shift Q", "D4"));
        settle();
    }
    ComputerKeyboardCtl& keyboard() { return control<ComputerKeyboardCtl>("Computer keyboard"); }
    QCheckBox& useKeyUpModifiers()
    {
        const auto boxes = surroundings.findChildren<QCheckBox*>();
        return **std::ranges::find(boxes, "Use modifiers on key up", &QCheckBox::text);
    }
    void mouseDown(int code) { QTest::mousePress(&keyboard(), Qt::LeftButton, {}, keyboard().getPlace(code)); }
    void mouseUp(int code) { QTest::mouseRelease(&keyboard(), Qt::LeftButton, {}, keyboard().getPlace(code)); }
    /// Between the two texts of a key.
    void expectColour(int code, Role role)
    {
        const QImage picture = keyboard().grab().toImage();
        const QPoint place = picture.devicePixelRatio() * (keyboard().getPlace(code) + QPoint(12, 0));
        EXPECT_EQ(picture.pixelColor(place), gui->getGdiManager().getColour(role));
    }
    void hook(KeyboardHook::Number number, KeyboardHook::KeyEvent event)
    {
        Message message = event.toMessage(number);
        gui->getGuiMessageManagerMaster().handleMessage(message);
    }
};

TEST_F(ComputerKeyboard, ShowsWhatItsKeysDoInTheBackend)
{
    EXPECT_EQ(keyboard().getCaption('Q'), "C4");
    EXPECT_EQ(keyboard().getCaption('W'), "");
    EXPECT_EQ(keyboard().getHelp('W').toStdString(), "W: does nothing.");
    EXPECT_EQ(keyboard().getHelp('Q').toStdString(),
              "Q\nDown: Midi Note On: output 1, channel 1, note C4, velocity 100\n"
              "Up: Midi Note Off: output 1, channel 1, note C4, velocity 100");
    expectColour('Q', Role::unselectedButton);
    expectColour('W', Role::background);

    Backend::ComputerInput::KeyConfiguration reset(Key{.keyCode = 'Q'});
    reset.global = false;
    reset.setDownFunction(createFunction("ResetOrv", *orv), 0);
    orv->getComputerInputMessageManager().postSetKeyConfigurations({reset}, true);
    EXPECT_EQ(keyboard().getCaption('Q'), "Reset");
    EXPECT_EQ(keyboard().getHelp('Q').toStdString(), "Q\nDown: Reset ORV\nOther programs keep this key.");

    load("<Key id='Q'><Function><Down><MidiNoteOn zone='1' note='C4'/></Down></Function></Key>");
    EXPECT_EQ(keyboard().getCaption('Q'), "C4");
    expectColour('Q', Role::text);
    commands().postExecuteFunction("<ChangeZoneTranspose type='1' value='-12'/>");
    settle();
    EXPECT_EQ(keyboard().getCaption('Q'), "C3") << "as it sounds";
    EXPECT_EQ(keyboard().getHelp('Q').toStdString(), "Q\nDown: Midi Note On: zone 2, note C4, velocity 100");
    reopen();
    EXPECT_EQ(keyboard().getCaption('Q'), "C3");

    load("", "useKeyUpMod='true'");
    EXPECT_EQ(keyboard().getCaption('Q'), "");
    EXPECT_TRUE(useKeyUpModifiers().isChecked());
    QTest::mouseClick(&useKeyUpModifiers(), Qt::LeftButton, {}, {215, 11});
    rest();
    EXPECT_FALSE(keys().getUseKeyUpMod());
}

TEST_F(ComputerKeyboard, LightsTheKeysThatAreDownAndFollowsTheModifiers)
{
    constexpr quint32 LEFT_SHIFT = Key::LEFT_SHIFT, Q = 'Q';
    keyDown(LEFT_SHIFT, Qt::Key_Shift);
    EXPECT_EQ(keyboard().getCaption('Q'), "D4");
    keyDown(Q, Qt::Key_Q, Qt::ShiftModifier);
    expectColour('Q', Role::selectedButton);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&keyboard())->text(QAccessible::Value), "Left Shift, Q");
    keyUp(Q, Qt::Key_Q, Qt::ShiftModifier);
    keyUp(LEFT_SHIFT, Qt::Key_Shift, Qt::ShiftModifier);
    EXPECT_EQ(keyboard().getCaption('Q'), "C4");
    EXPECT_EQ(keyboard().getAccessibleValue(), "");
    keyDown(Q);
    gui->clearComputerKeyboardHilight();
    EXPECT_EQ(keyboard().getAccessibleValue(), "");
}

TEST_F(ComputerKeyboard, PlaysUnderTheMouseAndLeavesNoNoteWhenItGoes)
{
    mouseDown('Q');
    EXPECT_EQ(played(), "C4 on");
    EXPECT_EQ(keyboard().getAccessibleValue(), "Q");
    mouseUp('W');
    EXPECT_EQ(played(), "C4 off") << "wherever it is let go";
    EXPECT_EQ(keyboard().getAccessibleValue(), "");
    mouseDown('Q');
    gui->showScreen(Backend::Screen::computerInput, false);
    EXPECT_EQ(played(), "C4 on, C4 off");
    gui->showScreen(Backend::Screen::computerInput, true);
    mouseDown('Q');
    gui->destroy();
    EXPECT_EQ(played(), "C4 on, C4 off");
}

TEST_F(ComputerKeyboard, HasAFewLettersForEveryFunction)
{
    struct : FunctionEnumerator {
        void addFunction(const Backend::FunctionInfo& info) override { types.push_back(info.typeName); }
        std::vector<std::string_view> types;
    } all;
    enumerateFunctions(all);
    for (const auto type : all.types) {
        const auto function = createFunction(type, *orv);
        if (function == nullptr) continue;
        const QString caption = FunctionCaption::shortNameOf(*function);
        EXPECT_FALSE(caption.isEmpty()) << type;
        EXPECT_LE(caption.size(), 9) << type;
    }
    using Row = std::pair<const char*, const char*>;
    for (const auto& [xml, caption] : {
             Row{"<MidiNoteOff note='C#3'/>", "Off C#3"},
             {"<MidiControllerChange controller='64'/>", "CC64"},
             {"<ChangeZoneTranspose type='selected' value='-12'/>", "ZT-12"},
             {"<ChangeControl type='selected' value='127'/>", "Ctl 127"},
             {"<SelectControl type='left'/>", "Sel lf"},
             {"<ChangeProgram type='up'/>", "Prog+"},
             {"<SelectZone type='0'/>", "Zone 1"},
             {"<MidiPitchBend value='0'/>", "Bend-"},
             {"<MidiPitchBend value='16383'/>", "Bend+"},
         }) {
        const XmlDocument document(xml, XmlDocument::Source::text);
        EXPECT_EQ(FunctionCaption::shortNameOf(*createFunctionFromXml(document.getRoot(), *orv)), caption);
    }
}

using GlobalKeyboard = ComputerKeyboard;

TEST_F(GlobalKeyboard, KeysOfOtherProgramsPlayOnceThoughOursAreHeld)
{
    const auto Q = static_cast<std::uint8_t>(KeyTable::scanCodeOf('Q'));
    hook(KeyboardHook::KEY_DOWN, {.scanCode = Q});
    hook(KeyboardHook::KEY_DOWN, {.scanCode = Q, .repeat = true});
    EXPECT_EQ(keyboard().getAccessibleValue(), "Q");
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_EQ(played(), "C4 on") << "our focus has nothing to do with it";
    hook(KeyboardHook::KEY_UP, {.scanCode = Q, .modifiers = KeyboardHook::SHIFT});
    EXPECT_EQ(played(), "C4 off");

    hook(KeyboardHook::UD_KEYBOARDHOOK_GLOBAL_KEY_CHANGED, {.scanCode = 1});
    EXPECT_TRUE(settings().getGlobalKeyboard()) << "it is switched by its key, and that is kept";
    EXPECT_TRUE(gui->getRegistrySettings().getGlobalKeyboard());
}

TEST_F(GlobalKeyboard, TakesWhatDoesSomethingAndLeavesTheRest)
{
    const auto key = [](const std::string& attributes, const std::string& function) {
        return "<Key " + attributes + "><Function><Down>" + function + "</Down></Function></Key>";
    };
    const std::string toggle = "<ChangeGlobalKeyboard type='toggle'/>";
    load(noteKey("Q", "C4") + noteKey("Shift W", "C4") + key("id='E' global='false'", "<ResetOrv/>") + "<Key id='R'/>" +
         key("id='F12'", toggle) + key("id='F11'", "<ChangeGlobalKeyboard type='on'/>") +
         key("id='F10' global='false'", toggle) + key("id='F9'", toggle) + noteKey("Control F9", "D4") +
         key("id='Shift F8'", toggle));
    const auto excluded = Gui::GlobalKeyboard::findExcluded(keys().getKeys());
    std::string taken;
    for (const int code : {int{'Q'}, int{'W'}, int{'E'}, int{'R'}, int{'T'}, int{Key::F12}, int{Key::F11},
                           int{Key::F10}, int{Key::F9}, int{Key::F8}, int{Key::LEFT_SHIFT}})
        if (!excluded.contains(code)) taken += Key{.keyCode = code}.toXmlString() + " ";
    EXPECT_EQ(taken, "Q W F12 F11 F9 F8 ");
    EXPECT_EQ(Gui::GlobalKeyboard::findControlKeys(keys().getKeys()), Gui::GlobalKeyboard::Codes{Key::F12});
}
