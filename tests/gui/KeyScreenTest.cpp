#include <QClipboard>

#include "backend/bindings/functions/FunctionEnumerator.h"
#include "backend/bindings/functions/FunctionFactories.h"
#include "gui/forms/BindingFields.h"
#include "gui/keyboard/GlobalKeyboard.h"
#include "gui/presets/PresetCtl.h"
#include "gui/screens/computerinput/ComputerInputPanel.h"
#include "gui/screens/computerinput/ComputerKeyboardCtl.h"
#include "tests/gui/BindingStage.h"
#include "tests/gui/FieldWalk.h"
#include "tests/stage/Text.h"

using namespace Backend;
using Gui::ComputerInput::ComputerKeyboardCtl;

/// A window with the keys screen, in which no key does anything.
struct KeyScreen : BindingStage, testing::Test {
    static constexpr quint32 A = 'A', LEFT_SHIFT = Key::LEFT_SHIFT;

    KeyScreen()
    {
        open({.system = false, .help = false, .output = false});
        load("");
        board = &control<ComputerKeyboardCtl>("Computer keyboard");
    }

    void select(int code, Qt::KeyboardModifiers held = {})
    {
        QTest::mouseClick(board, Qt::LeftButton, held, board->getPlace(code));
    }
    void learn(quint32 place, int key, Qt::KeyboardModifiers held = {})
    {
        operate("Learn");
        keyDown(place, key, held), keyUp(place, key, held);
        settle();
    }
    QListWidget& list(const QString& name) { return control<QListWidget>(name); }
    void type(const QString& field, const QString& text)
    {
        auto& line = control<QLineEdit>(field);
        line.setFocus();
        replaceText(line, text);
        QTest::keyClick(&line, Qt::Key_Return);
        settle();
        line.clearFocus();
        gui->setFocus();
    }
    /// Steps through a list.
    void step(const QString& field, Qt::Key key)
    {
        QTest::keyClick(&control(field), key);
        settle();
    }
    /// The lines of the entries, the current one with a star.
    std::string entries()
    {
        settle();
        std::string all;
        auto& lines = list("Entries");
        for (int row = 0; row < lines.count(); ++row)
            all += (row == lines.currentRow() ? "*" : "") + lines.item(row)->text().toStdString() + "\n";
        return all;
    }
    std::string typed(quint32 place, int key, Qt::KeyboardModifiers held = {}, int repeats = 0)
    {
        takePlayed();
        for (int i = 0; i <= repeats; ++i) keyDown(place, key, held);
        keyUp(place, key, held);
        return played();
    }
    std::string writtenNow()
    {
        settle();
        return written();
    }

    ComputerKeyboardCtl* board;
};

TEST_F(KeyScreen, BindsANoteToALearnedKey)
{
    learn(A, Qt::Key_A);
    EXPECT_EQ(entries(), "*1 down: None\n1 up: None\n");
    choose("Midi Note On");
    type("Zone", "1");
    type("Note", "C5");
    EXPECT_EQ(entries(),
              "*1 down: Midi Note On: zone 1, note C5, velocity 100\n"
              "1 up: Midi Note Off: zone 1, note C5, velocity 100\n");
    EXPECT_EQ(zones(), "0 C5-C5");
    EXPECT_EQ(board->getCaption('A'), "C5");
    EXPECT_EQ(typed(A, Qt::Key_A, {}, 1), "C5 on, C5 off");
    step("Keep sending", Qt::Key_Up);
    EXPECT_EQ(typed(A, Qt::Key_A, {}, 2), "C5 on, C5 on, C5 on, C5 off");

    learn(A, Qt::Key_A, Qt::ShiftModifier);
    choose("Midi Note On");
    EXPECT_EQ(board->getCaption('A'), "C4");
    EXPECT_EQ(typed(A, Qt::Key_A), "C5 on, C5 off");
    operate("Edit keys");
    EXPECT_EQ(board->getCaption('A'), "C5") << "without modifiers again";
    undo();
    EXPECT_EQ(names(), "A") << "the other one never was";

    QContextMenuEvent click(QContextMenuEvent::Mouse, board->getPlace('A'), {});
    QApplication::sendEvent(board, &click);
    step("Global", Qt::Key_Down);
    EXPECT_TRUE(Gui::GlobalKeyboard::findExcluded(keys().getKeys()).contains('A')) << "other programs keep it";
    operate("Clear keys");
    EXPECT_EQ(writtenNow(),
              "<ComputerInput merge='false' useKeyUpMod='false'><Key id='A' global='true'></Key>"
              "</ComputerInput>");
}

TEST_F(KeyScreen, GivesSeveralKeysRisingNotesInOneStep)
{
    operate("Edit keys");
    select('A');
    select('F', Qt::ShiftModifier);
    choose("Midi Note On");
    const auto captions = [&] {
        std::string all;
        for (const int code : {'A', 'S', 'D', 'F', 'Q', 'W'}) all += board->getCaption(code).toStdString() + " ";
        return all;
    };
    EXPECT_EQ(captions(), "C4 C#4 D4 D#4   ");
    step("Notes", Qt::Key_Down);
    EXPECT_EQ(captions(), "C4 D4 E4 F4   ");
    type("Note", "A4");
    EXPECT_EQ(captions(), "A4 B4 C#5 D5   ");
    EXPECT_EQ(typed(A, Qt::Key_A), "A4 on, A4 off");
    undo();
    EXPECT_EQ(captions(), "C4 D4 E4 F4   ") << "all keys are one step";
    type("Velocity", "50");
    EXPECT_EQ(captions(), "C4 D4 E4 F4   ");
    undo(), undo();
    EXPECT_EQ(captions(), "C4 C#4 D4 D#4   ");

    dynamic_cast<Gui::Preset::PresetGuiOwner&>(
        *Gui::Preset::PresetCtl::findAll(surroundings, PresetSections::COMPUTER_INPUT)[0])
        .addPreset("Four", true);
    settle();
    const std::string preset = flat(fileText(keys().getPresets().getPresetPath("Four")));
    EXPECT_NE(preset.find("<ComputerInput merge='true'"), std::string::npos);
    EXPECT_NE(preset.find("<Key id='D' global='true'><Function"), std::string::npos);

    select('S');
    select('D', Qt::ControlModifier);
    operate("Copy keys");
    select('Q');
    operate("Paste keys");
    EXPECT_EQ(captions(), "C4 C#4 D4 D#4 C#4 D4 ") << "from there on";
    undo();
    EXPECT_EQ(captions(), "C4 C#4 D4 D#4   ");
    undo();
    EXPECT_EQ(names(), "");
}

TEST_F(KeyScreen, HasEntriesInOrderAndIsOperatedByKeys)
{
    board->setFocus();
    const auto key = [&](Qt::Key pressed, Qt::KeyboardModifiers held = {}) {
        QTest::keyClick(board, pressed, held);
        settle();
        return board->getAccessibleValue().toStdString();
    };
    key(Qt::Key_Home);
    EXPECT_EQ(key(Qt::Key_Down), "Quote: does nothing.");
    EXPECT_EQ(key(Qt::Key_Right), "1: does nothing.");
    EXPECT_EQ(key(Qt::Key_Down), "Q: does nothing.");
    key(Qt::Key_Return);
    choose("Tap Tempo");
    EXPECT_EQ(board->getAccessibleValue().toStdString(), "Q\nDown: Tap Tempo");
    operate("Add entry");
    EXPECT_EQ(entries(), "1 down: Tap Tempo\n1 up: None\n*2 down: None\n2 up: None\n");
    choose("Reset ORV");
    operate("Earlier entry");
    EXPECT_EQ(entries(), "*1 down: Reset ORV\n1 up: None\n2 down: Tap Tempo\n2 up: None\n");
    EXPECT_FALSE(control("Earlier entry").isEnabled());
    operate("Remove entry");
    EXPECT_EQ(entries(), "*1 down: Tap Tempo\n1 up: None\n");
    undo();
    EXPECT_EQ(entries(), "*1 down: Reset ORV\n1 up: None\n2 down: Tap Tempo\n2 up: None\n");
    board->setFocus();
    EXPECT_EQ(key(Qt::Key_Delete), "Q: does nothing.");

    operate("Learn");
    gui->setFocus();
    EXPECT_EQ(&focus(), &control("Learn")) << "as long as it waits";
}

TEST_F(KeyScreen, BindsEveryFunctionWithEverySetting)
{
    struct : FunctionManagement::FunctionEnumerator {
        void addFunction(const FunctionInfo& info) override { all.push_back(info); }
        std::vector<FunctionInfo> all;
    } functions;
    FunctionManagement::enumerateFunctions(functions);
    Gui::Forms::FieldLists lists;
    for (const auto& port : gui->getMidiOutputPorts()) lists.outputs << QString::fromStdString(port.getName());
    learn(A, Qt::Key_A);
    choose("Tap Tempo");
    const Gui::ComputerInput::KeyRecords* records = nullptr;
    for (auto* widget : surroundings.findChildren<QWidget*>())
        if (auto* panel = dynamic_cast<Gui::ComputerInput::ComputerInputPanel*>(widget)) records = &panel->getRecords();
    FieldWalk fields;
    fields.around = &surroundings;
    for (const FunctionInfo& info : functions.all) {
        choose(QString::fromUtf8(info.displayName.data(), static_cast<qsizetype>(info.displayName.size())));
        const Key key{.keyCode = 'A'};
        const auto& down = records->getKeys().findElement(key)->getEntries()[0].downFunction;
        ASSERT_EQ(typeOf(down), info.typeName);
        if (down != nullptr)
            fields.walk(info.typeName, Gui::Forms::fieldsOf(*down, lists), [&] {
                const auto text = writtenBy([&](std::ostream& out) { down->writeXml(out, 0); });
                const auto copy = FunctionManagement::createFunctionFromXml(rootOf(text), *orv);
                return FieldWalk::valuesOf(Gui::Forms::fieldsOf(*copy, lists));
            });
        while (!gui->getEdits().isIdle()) settle();
        const auto textOf = [&](const auto& map) {
            return writtenBy([&](std::ostream& out) { map.findElement(key)->writeXml(out, 0); });
        };
        EXPECT_EQ(textOf(keys().getKeys()), textOf(records->getKeys())) << info.typeName;
    }
    EXPECT_GT(fields.set, 700);
}
