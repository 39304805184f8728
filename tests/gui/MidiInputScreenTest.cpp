#include <QTreeWidget>

#include "backend/bindings/translations/TranslationEnumerator.h"
#include "backend/bindings/translations/TranslationFactories.h"
#include "backend/sections/layers/LayerManager.h"
#include "backend/sections/midiinput/MidiInputManager.h"
#include "gui/presets/PresetCtl.h"
#include "gui/screens/midiinput/MidiInputPanel.h"
#include "tests/gui/BindingStage.h"
#include "tests/gui/FieldWalk.h"
#include "tests/stage/Text.h"

using namespace Backend;

/// A window with the screen of the MIDI inputs, and no entries.
struct MidiInputScreen : BindingStage, testing::Test {
    MidiInputScreen()
    {
        open(NO_SCREENS);
        gui->showScreen(Screen::midiInput, true);
        load("");
        gui->setFocus();
    }

    std::string entries() { return rows("events"); }
    std::string translations() { return rows("Entries"); }
    std::string preview() { return settled<QLabel>("Preview: ").text().toStdString(); }
    /// What the layers get of a note-on.
    std::string played(const char* note, int velocity, int channel)
    {
        settle();
        WindowStage::played();
        player.events.clear();
        press(note, velocity, channel);
        settle();
        playSlices();
        std::string all;
        for (const auto& event : player.events) {
            char text[16];
            std::snprintf(text, sizeof text, "%02x %02x %02x ", event.getStatusWithChannel(), event.getD1(),
                          event.getD2());
            all += text;
        }
        return all;
    }
    /// The row of what was received, once it says so.
    std::string received(int row, const char* becomes)
    {
        auto& list = control<QTreeWidget>("Received events");
        const auto text = [&] {
            QString all;
            for (int column = 0; list.topLevelItemCount() > row && column < list.columnCount(); ++column)
                all += list.topLevelItem(row)->text(column) + '|';
            return all;
        };
        EXPECT_TRUE(QTest::qWaitFor([&] { return text().contains(becomes); })) << text().toStdString();
        return text().toStdString();
    }
    void clickReceived(int row)
    {
        auto& list = control<QTreeWidget>("Received events");
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(list.topLevelItem(row)).center());
        settle();
    }
    /// The control whose name begins so.
    template <class Control>
    Control& settled(const QString& begin)
    {
        settle();
        for (auto* each : surroundings.findChildren<Control*>())
            if (each->accessibleName().startsWith(begin)) return *each;
        throw std::runtime_error("no " + begin.toStdString());
    }
    Gui::MidiInput::EventRecords& records()
    {
        for (auto* each : surroundings.findChildren<QWidget*>())
            if (auto* panel = dynamic_cast<Gui::MidiInput::MidiInputPanel*>(each)) return panel->getRecords();
        throw std::runtime_error("no screen");
    }
    MidiInput::MidiInputManager& midiInput() { return orv->getMidiInputManager(); }
    void load(const std::string& content)
    {
        rest();
        midiInput().loadSection(rootOf("<MidiInput>" + content + "</MidiInput>"));
        settle();
    }
    static std::string general(const char* d1)
    {
        return std::string("<MidiEvent midiEvent='Note On,60'><Translation condition='Off'><Unchanged D1='") + d1 +
               "'/></Translation></MidiEvent>";
    }
};

TEST_F(MidiInputScreen, TurnsWhatIsReceivedIntoAnEntry)
{
    press("C4");
    EXPECT_EQ(received(0, "Unchanged"), "In 1|1|Note On C4|100|Unchanged|");
    clickReceived(0);
    EXPECT_EQ(entries(), "In 1, channel 1, Note On C4: Unchanged\n");
    EXPECT_EQ(translations(), "1: Unchanged\n");
    step("D1", 2);
    type("D1: changed by", "12");
    EXPECT_EQ(preview(), "C4 100 → C5 100");
    EXPECT_EQ(received(0, "C5"), "In 1|1|Note On C4|100|C5 100|");
    EXPECT_EQ(played("C4", 100, 0), "90 48 64 ");

    step("Condition", 2);
    type("Compared with", "100");
    EXPECT_EQ(played("C4", 100, 0), "") << "it is swallowed";
    EXPECT_EQ(played("C4", 101, 0), "90 48 65 ");
    operate("Add entry");
    EXPECT_EQ(translations(), "1: If D2 > 100: Unchanged, D1: changed by 12\n2: Do Nothing\n");
    choose("Unchanged", "Translations");
    step("Condition", 2);
    step("Comparison", 1);
    type("Compared with", "100");
    EXPECT_EQ(played("C4", 100, 0), "90 3c 64 ");
    EXPECT_EQ(played("C4", 101, 0), "90 48 65 ");

    operate("Remove entry"), operate("Remove entry");
    EXPECT_EQ(entries(), "") << "an entry of nothing is none";
    EXPECT_EQ(midiInput().getConfiguration().size(), 0u);
    undo(), undo();
    EXPECT_EQ(played("C4", 100, 0), "90 3c 64 ");
}

TEST_F(MidiInputScreen, ASpecificEntryHidesTheGeneralOneUntilItIsRemoved)
{
    load(general("72"));
    operate("Learn");
    EXPECT_EQ(played("C4", 100, 1), "") << "it was learned";
    EXPECT_EQ(entries(),
              "In 1, channel 2, Note On C4: Unchanged\n"
              "All inputs, all channels, Note On C4: Unchanged, D1: specific 72\n");
    EXPECT_EQ(played("C4", 90, 1), "90 3c 5a ");
    EXPECT_EQ(played("C4", 90, 0), "90 48 5a ");
    step("Input", -1);
    step("Event channel", -2);
    EXPECT_EQ(entries().find("All inputs, channel 1,"), 0u) << "it cannot have the event of the other one";
    type("Zone", "2");
    EXPECT_EQ(zones(), "1 C4-C4") << "which the screen of the zones shows";
    const auto save = [&] {
        dynamic_cast<Gui::Preset::PresetGuiOwner&>(
            *Gui::Preset::PresetCtl::findAll(surroundings, PresetSections::MIDI_INPUT)[0])
            .addPreset("One", true);
        settle();
        return flat(fileText(midiInput().getPresets().getPresetPath("One")));
    };
    const std::string preset = save();
    EXPECT_NE(preset.find("<MidiInput merge='true'><MidiEvent input='-1' channel='0'"), std::string::npos) << preset;
    EXPECT_EQ(preset.find("input='-1' channel='-1'"), std::string::npos) << preset;
    undo(), undo();
    EXPECT_EQ(entries().find("All inputs, channel 2,"), 0u);
    key(control("events"), Qt::Key_Delete);
    EXPECT_EQ(played("C4", 90, 1), "90 48 5a ");
    undo();
    EXPECT_EQ(played("C4", 90, 1), "90 3c 5a ");
    const auto specific = records().getEntries().createIterator()->next()->getEvent();
    midiInput().getMessageManager().postSetEventConfigurations({MidiInput::MidiEventConfiguration(specific)}, true);
    EXPECT_EQ(entries().find("All inputs, all channels"), 0u);
}

TEST_F(MidiInputScreen, ALearnedFaderSetsTheVelocityOfALayerWhileTheOtherHandPlays)
{
    settle();
    orv->setKeepNotes(true);
    operate("Learn");
    arrive(controller(7, 100).channel(4).input(1));
    choose("Change Layer Velocity", "Translations");
    pick("Which", "Specific");
    EXPECT_EQ(preview(), "Control Change 7: Channel Volume 100 → Change Layer Velocity");
    takePlayed();
    press("E4");
    for (const int value : {90, 60, 30}) arrive(controller(7, value).channel(4).input(1));
    settle();
    EXPECT_EQ(WindowStage::played(), "E4 on") << "it is held";
    EXPECT_EQ(orv->getLayerManager().getLayers().getLayers()[0].velocity.value, 30);
    release("E4");
    EXPECT_EQ(WindowStage::played(), "E4 off");
}

TEST_F(MidiInputScreen, BindsEveryTranslationWithEverySettingAndCondition)
{
    using namespace MidiInput::TranslationManagement;
    struct : TranslationEnumerator {
        void addTranslation(const FunctionInfo& info) override { all.push_back(info); }
        std::vector<FunctionInfo> all;
    } names;
    enumerateTranslations(names);
    Gui::Forms::FieldLists lists;
    for (const auto& port : gui->getMidiOutputPorts()) lists.outputs << QString::fromStdString(port.getName());
    operate("Add event");
    const auto id = records().getIds()[0];
    const auto now = [&] { return records().find(id)->getTranslations()[0].get(); };
    const auto copy = [&] {
        return MidiInput::MidiEventConfiguration::fromXml(rootOf(records().write(id)), createTranslationFromXml);
    };
    FieldWalk fields;
    fields.around = control("Add event").parentWidget()->parentWidget();  // the screen
    for (const FunctionInfo& info : names.all) {
        choose(QString::fromUtf8(info.displayName.data(), static_cast<qsizetype>(info.displayName.size())),
               "Translations");
        ASSERT_EQ(now()->getType(), info.typeName);
        fields.walk(info.typeName, Gui::Forms::fieldsOf(*now(), lists),
                    [&] { return FieldWalk::valuesOf(Gui::Forms::fieldsOf(*copy().getTranslations()[0], lists)); });
        while (!gui->getEdits().isIdle()) settle();
        EXPECT_EQ(flat(midiInput().writeRecord(id)), flat(records().write(id))) << info.typeName;
    }
    choose("Do Nothing", "Translations");
    const auto condition = records().fieldsOfRow(id, 0);
    ASSERT_EQ(condition.size(), 3u);
    fields.walk("condition", condition, [&] {
        const std::string read = copy().getTranslations()[0]->getCondition().toXmlString();
        return read == now()->getCondition().toXmlString() ? FieldWalk::valuesOf(condition) : read;
    });
    EXPECT_GT(fields.set, 700);
}
