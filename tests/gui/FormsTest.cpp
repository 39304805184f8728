#include "backend/bindings/functions/FunctionEnumerator.h"
#include "backend/bindings/functions/FunctionFactories.h"
#include "backend/bindings/translations/TranslationEnumerator.h"
#include "backend/bindings/translations/TranslationFactories.h"
#include "gui/forms/BindingFields.h"
#include "gui/forms/BindingPicker.h"
#include "gui/forms/FieldMaker.h"
#include "gui/forms/SettingsForm.h"
#include "tests/gui/GuiStage.h"
#include "tests/sections/KeyStage.h"
#include "tests/stage/Text.h"

using namespace Backend;
using namespace Gui::Forms;
using FieldEdit = FormField::Edit;
using FieldList = std::vector<FormField>;

struct Forms : GuiStage, testing::Test {
    struct Names final : FunctionManagement::FunctionEnumerator,
                         MidiInput::TranslationManagement::TranslationEnumerator {
        Names() { FunctionManagement::enumerateFunctions(*this); }
        void addFunction(const FunctionInfo& function) override { functions.push_back(function.typeName); }
        void addTranslation(const FunctionInfo& translation) override { translations.push_back(translation.typeName); }
        std::vector<std::string_view> functions, translations;
    };

    Forms()
    {
        MidiInput::TranslationManagement::enumerateTranslations(names);
        form = &show(*new SettingsForm(*this, &window));
    }

    std::unique_ptr<FunctionManagement::Function> copyOf(const FunctionManagement::Function& function)
    {
        const std::string text = writtenBy([&](std::ostream& out) { function.writeXml(out, 0); });
        return FunctionManagement::createFunctionFromXml(rootOf(text), *backend.orv);
    }
    static std::unique_ptr<MidiInput::TranslationManagement::Translation> copyOf(
        const MidiInput::TranslationManagement::Translation& translation)
    {
        const std::string text = writtenBy([&](std::ostream& out) { translation.writeXml(out, 0); });
        return MidiInput::TranslationManagement::createTranslationFromXml(
            rootOf("<Translation>" + text + "</Translation>"));
    }

    /// What a form shows, without what has no effect now.
    static std::string valuesOf(const FieldList& fields)
    {
        std::string all;
        for (const auto& field : fields)
            if (!field.isUsed || field.isUsed()) all += (field.name + '=' + field.get() + ' ').toStdString();
        return all;
    }

    /// The control of a field, and the remark beside it.
    QLineEdit& control(const QString& name)
    {
        for (auto* line : form->findChildren<QLineEdit*>())
            if (line->accessibleName() == name && line->isVisible()) return *line;
        throw std::runtime_error("no " + name.toStdString());
    }
    void type(const QString& name, const QString& text)
    {
        auto& line = control(name);
        line.setFocus();
        replaceText(line, text);
        QTest::keyClick(&line, Qt::Key_Return);
    }

    /// Sets the fields to all that they take, through their controls; each time a copy by way of a file is the same.
    template <class Binding>
    void walk(Binding& binding)
    {
        const FieldList fields = fieldsOf(binding, lists);
        form->setRecords({fields});
        settle();
        const auto expect = [&](const FormField& field, const QString& value) {
            ++set;
            EXPECT_EQ(field.get(), value) << binding.getType() << field.name.toStdString();
            EXPECT_EQ(valuesOf(fieldsOf(*copyOf(binding), lists)), valuesOf(fields)) << binding.getType();
        };
        const std::function<void(const FormField&)> walkField = [&](const FormField& field) {
            if (field.edit == FieldEdit::text) {
                type(field.name, "Mine & yours");
                return expect(field, "Mine & yours");
            }
            if (field.edit != FieldEdit::list) return walkNumber(field, expect);
            auto& list = control(field.name);
            QTest::keyClick(&list, Qt::Key_Down);  // from one that is missing
            for (std::size_t i = 0; i < field.choices.size(); ++i) QTest::keyClick(&list, Qt::Key_Up);
            for (const auto& choice : field.choices) {
                expect(field, choice.text);
                for (const FormField& other : fields)  // those that this choice brings into use
                    if (other.isUsed && other.isUsed() && other.name != field.name) walkField(other);
                QTest::keyClick(&list, Qt::Key_Down);
            }
        };
        for (const FormField& field : fields)
            if (!field.isUsed) walkField(field);
    }
    void walkNumber(const FormField& field, const auto& expect)
    {
        const bool isNote = field.edit == FieldEdit::note;
        const auto shown = [&](int number) {
            return isNote ? QString(number == 0 ? "C-1" : "G9") : QString::number(number);
        };
        const QString lowest = shown(std::max(field.lowest, field.edit == FieldEdit::change ? 0 : field.lowest));
        type(field.name, lowest);
        expect(field, lowest);
        type(field.name, QString::number(field.highest + 1));
        expect(field, shown(field.highest));
        EXPECT_NE(control(field.name).accessibleDescription(), "") << "it says why";
        type(field.name, "what");
        expect(field, shown(field.highest));
        if (field.edit == FieldEdit::change) {
            type(field.name, "+5");
            expect(field, "+5");
        }
        if (field.mayBeBlank || field.edit == FieldEdit::change) {
            type(field.name, "");
            expect(field, "");
        }
    }

    KeyStage backend;
    Names names;
    FieldLists lists{.outputs = {"Piano", "", "Strings"}};
    SettingsForm* form = nullptr;
    int set = 0;
};

TEST_F(Forms, SetEverySettingOfEveryFunctionAndOfEveryTranslation)
{
    int bindings = 0;
    for (const auto name : names.functions)
        if (const auto function = FunctionManagement::createFunction(name, *backend.orv)) {
            ++bindings;
            walk(*function);
        }
    for (const auto name : names.translations)
        if (const auto translation = MidiInput::TranslationManagement::createTranslation(name)) {
            ++bindings;
            walk(*translation);
        }
    EXPECT_EQ(bindings, static_cast<int>(names.functions.size() + names.translations.size()) - 1) << "all but None";
    EXPECT_GT(set, 1500);
}

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
