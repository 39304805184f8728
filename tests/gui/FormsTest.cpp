#include "backend/bindings/functions/FunctionFactories.h"
#include "gui/forms/BindingFields.h"
#include "gui/forms/BindingPicker.h"
#include "gui/forms/FieldMaker.h"
#include "gui/forms/SettingsForm.h"
#include "tests/gui/FieldWalk.h"
#include "tests/gui/GuiStage.h"
#include "tests/sections/KeyStage.h"
#include "tests/stage/Text.h"

using namespace Backend;
using namespace Gui::Forms;

struct Forms : GuiStage, FieldWalk, testing::Test {
    Forms() { around = form = &show(*new SettingsForm(*this, &window)); }

    KeyStage backend;
    FieldLists lists{.outputs = {"Piano", "", "Strings"}};
    SettingsForm* form = nullptr;
};

TEST_F(Forms, ShowWhereRecordsDifferAndSetAllOfThem)
{
    const auto low = FunctionManagement::createFunction("MidiNoteOn", *backend.orv);
    const auto high = low->clone();
    const FieldList lowFields = fieldsOf(*low, lists);
    const FieldList highFields = fieldsOf(*high, lists);
    form->setRecords({lowFields, highFields});
    settle();
    std::vector<QString> changed;
    form->onChange = [&](const QString& name) { changed.push_back(name); };
    EXPECT_EQ(control("Note").text(), "C4");
    highFields[3].set("C5");
    form->follow();
    EXPECT_EQ(control("Note").text(), "");
    EXPECT_EQ(control("Velocity").text(), "100");
    wheel(control("Velocity"), 1);
    type("Note", "d#4");
    EXPECT_EQ(valuesOf(lowFields), valuesOf(highFields));
    EXPECT_EQ(valuesOf(lowFields), "Zone= Output=Default Channel=Default Note=D#4 Velocity=101 ");
    EXPECT_EQ(changed, (std::vector<QString>{"Velocity", "Note"}));

    auto& velocity = control("Velocity");
    velocity.setFocus(Qt::TabFocusReason);
    settle();
    for (const FieldList* fields : {&lowFields, &highFields}) (*fields)[4].set("50");
    form->follow();
    QTest::keyClicks(&velocity, "7\r");
    EXPECT_EQ(velocity.text(), "7") << "typing replaces a value that came while all of the text was selected";
}

TEST_F(Forms, TheLimitsOfAValueFollowItsEvent)
{
    MidiEngine::MidiMessage event(MidiEngine::MessageType::controllerChange, 7);
    int top = 127;
    FieldMaker maker(lists);
    maker.addEvent("Event", {[&] { return event; }, [&](MidiEngine::MidiMessage chosen) { event = chosen; }});
    maker.addNumber("Highest", {.follow = [&] { return FieldMaker::getValueRange(event); }},
                    {[&] { return top; }, [&](int value) { top = value; }});
    const FieldList fields = maker.take();
    form->setRecords({fields});
    settle();
    EXPECT_EQ(valuesOf(fields), "Event=Controller Change Controller=7 Channel Volume Highest=127 ");
    type("Highest", "9999");
    EXPECT_EQ(top, 127);
    fields[0].set("Pitch Bend");
    form->follow();
    EXPECT_FALSE(fields[1].isUsed() || fields[2].isUsed());
    type("Highest", "99999");
    EXPECT_EQ(top, 16383);
    fields[0].set("None");
    EXPECT_FALSE(event.isValid());
}

TEST_F(Forms, PickABindingByFamilyOrByTyping)
{
    auto& picker = show(*new BindingPicker(BindingPicker::Of::functions, &window));
    std::string chosen;
    picker.onChoose = [&](const std::string& typeName) { chosen = typeName; };
    auto& list = *picker.findChild<QListWidget*>();
    auto& search = *picker.findChild<QLineEdit*>();
    picker.setChosen("ChangeTempo");
    EXPECT_EQ(picker.getChosen(), "ChangeTempo");
    EXPECT_EQ(chosen, "");
    EXPECT_NE(picker.findChild<QLabel*>()->text(), "");
    const auto seen = [&] {
        std::string all;
        for (int row = 0; row < list.count(); ++row)
            if (!list.item(row)->isHidden()) all += list.item(row)->text().trimmed().toStdString() + '\n';
        return all;
    };
    QTest::keyClicks(&search, "layer mute");
    EXPECT_EQ(seen(), "Layers\nChange Layer Mute\n");
    QTest::keyClick(&search, Qt::Key_Down);
    EXPECT_EQ(chosen, "ChangeLayerMute");
}
