#include "api/OrvUtils.h"
#include "backend/files/SequencePresetManager.h"
#include "backend/model/MidiEvent.h"
#include "backend/model/PresetSections.h"
#include "gui/framework/ComboBox.h"
#include "gui/framework/EditPoster.h"
#include "gui/presets/PresetCtl.h"
#include "tests/gui/DialogHands.h"

using namespace Backend;
namespace fs = std::filesystem;

struct PresetDialogs : DialogHands {
    static constexpr const char* CHARACTERS =
        R"(Name cannot contain any of the following characters: \ / : * ? " < > |)";

    PresetDialogs()
    {
        const PresetList factory = presets().getList();
        for (const auto& entry : factory.getEntries()) commands().postDeletePreset(entry.name);
        load(noteKey("Q", "C4"));
        commands().postSavePreset("one", {});
        settle();
        load(noteKey("W", "D4"));
        commands().postSavePreset("two", {});
        settle();
    }

    ComputerInput::ComputerInputMessageManager& commands() { return orv->getComputerInputMessageManager(); }
    PresetManager& presets() { return keys().getPresets(); }
    void openMenu(const QString& item)
    {
        click("Preset of the keys: save and edit");
        choose(item);
    }
    void select(const QString& name)
    {
        QListWidget& list = listIn("Presets");
        list.setCurrentItem(list.findItems(name, Qt::MatchExactly).at(0));
    }
    /// The dialog's list, the list of the keys' row and the folder, which agree.
    std::string listed()
    {
        std::string inDialog, inFolder, inRow;
        const QListWidget& list = listIn("Presets");
        for (int row = 0; row < list.count(); ++row) inDialog += list.item(row)->text().toStdString() + " ";
        for (const auto& entry : gui->getPresetList(PresetSections::COMPUTER_INPUT).getEntries())
            inRow += entry.name + " ";
        std::set<std::string> files;
        for (const auto& file : fs::directory_iterator(presets().getFolder()))
            files.insert(::textOf(file.path().stem()));
        for (const auto& file : files) inFolder += file + " ";
        return inDialog == inRow && inRow == inFolder ? inDialog : inDialog + "/ " + inRow + "/ " + inFolder;
    }
    std::string contentOf(const std::string& name) { return folders.read(presets().getPresetPath(name)); }
};

TEST_F(PresetDialogs, AddSavesTheKeysUnderANameThatAFileCanHave)
{
    openMenu("Edit Presets...");
    pressIn("Presets", "Add");
    const auto& selectedOnly = buttonIn<QCheckBox>(dialog("Add Preset"), "Selected Only");
    EXPECT_FALSE(selectedOnly.isEnabled()) << "nothing can be selected";
    EXPECT_EQ(enter("Add Preset", "   "), "Name cannot be blank");
    for (const char* name : {"a\\b", "a/b", "a:b", "a*", "a?", "\"a\"", "<a", "a>", "a|b"})
        EXPECT_EQ(enter("Add Preset", name), CHARACTERS) << name;
    EXPECT_EQ(listed(), "one two ");
    enter("Add Preset", "  Rag Time ");
    EXPECT_EQ(dialogs(), "Presets");
    EXPECT_EQ(listed(), "Rag Time one two ");
    EXPECT_NE(contentOf("Rag Time").find("<ComputerInput merge=\"false\""), std::string::npos);

    const std::string before = contentOf("one");
    pressIn("Presets", "Add");
    EXPECT_EQ(enter("Add Preset", "one", Answer::No), "Confirm Overwrite: Preset already exists. Overwrite?");
    EXPECT_EQ(contentOf("one"), before);
    std::ofstream(presets().getPresetPath("of another window")).close();
    EXPECT_EQ(enter("Add Preset", "of another window", Answer::No),
              "Confirm Overwrite: Preset already exists. Overwrite?");
    fs::remove(presets().getPresetPath("of another window"));
    lineIn("Add Preset").setText("one");
    EXPECT_EQ(dialogs(), "Add Preset, Presets") << "a no returns to it";
    confirm(lineIn("Add Preset"), Answer::Yes);
    EXPECT_EQ(contentOf("one"), contentOf("two"));
    EXPECT_EQ(listed(), "Rag Time one two ");
    pressIn("Presets", "Close");
    EXPECT_TRUE(isPlayingAgain());
}

TEST_F(PresetDialogs, EditGivesAnotherNameAlsoThatOfAnotherAndDeleteAsksFirst)
{
    openMenu("Edit Presets...");
    pressIn("Presets", "Delete");
    pressIn("Presets", "Edit");
    EXPECT_EQ(dialogs(), "Presets") << "nothing is selected";
    select("one");
    pressIn("Presets", "Edit");
    EXPECT_EQ(lineIn("Edit Preset Name").text(), "one");
    EXPECT_EQ(enter("Edit Preset Name", " "), "Name cannot be blank");
    EXPECT_EQ(enter("Edit Preset Name", "a|b"), CHARACTERS);
    lineIn("Edit Preset Name").setText("Größe");
    confirm(lineIn("Edit Preset Name"));
    EXPECT_EQ(listed(), "Größe two ");
    const std::string kept = contentOf("Größe");

    select("Größe");
    const QListWidget& list = listIn("Presets");
    const QPoint place = list.visualItemRect(list.currentItem()).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(enter("Edit Preset Name", "two"), "Another preset has this name. OK once more replaces it.");
    EXPECT_EQ(listed(), "Größe two ");
    confirm(lineIn("Edit Preset Name"));
    EXPECT_EQ(listed(), "two ");
    EXPECT_EQ(contentOf("two"), kept);

    select("two");
    EXPECT_EQ(pressIn("Presets", "Delete", Answer::No), "Delete Preset: Are you sure you want to delete?");
    EXPECT_EQ(listed(), "two ");
    pressIn("Presets", "Delete", Answer::Yes);
    EXPECT_EQ(listed(), "");
    EXPECT_EQ(names(), "W") << "what is loaded stays";
}

TEST_F(PresetDialogs, TheListLoadsAPreset)
{
    EXPECT_EQ(textOf("Preset of the keys"), "none");
    Hands::click(edit("Preset of the keys"));
    EXPECT_EQ(menu(), "one, two");
    choose("one");
    EXPECT_EQ(names(), "Q");
    EXPECT_EQ(textOf("Preset of the keys"), "one");
    openMenu("Save Preset As...");
    enter("Add Preset", "another");
    Hands::click(edit("Preset of the keys"));
    EXPECT_EQ(menu(), "another, *one, two");
    choose("another");
    commands().postLoadPreset("two");
    EXPECT_EQ(textOf("Preset of the keys"), "two");
}

TEST_F(PresetDialogs, SayThatTheFolderTookNothingAndShowWhatIsThere)
{
    const auto sentence = [](const std::string& what) {
        return what + " The folder \"Computer Input Presets\" could not be changed.";
    };
    const std::string before = contentOf("two");
    openMenu("Edit Presets...");
    pressIn("Presets", "Add");
    EXPECT_EQ(onFullDisk([this] { return enter("Add Preset", "three"); }), sentence("\"three\" was not saved."));
    pressIn("Presets", "Add");
    EXPECT_EQ(onFullDisk([this] { return enter("Add Preset", "two", Answer::Yes), answer(); }),
              sentence("\"two\" was not saved."));
    EXPECT_EQ(listed(), "one two ");
    EXPECT_EQ(contentOf("two"), before);

    const fs::path place = presets().getFolder();
    fs::rename(place, place.string() + " away");
    std::ofstream(place) << "no folder";
    leave("Presets");
    openMenu("Save Preset As...");
    EXPECT_EQ(enter("Add Preset", "three"), sentence("\"three\" was not saved."));
    select("one");
    EXPECT_EQ(pressIn("Presets", "Edit"), "") << "the line is gone";
    EXPECT_EQ(enter("Edit Preset Name", "four"), sentence("\"one\" was not renamed."));
    EXPECT_EQ(pressIn("Presets", "Delete", Answer::Yes), "") << "nothing is selected";
    select("two");
    pressIn("Presets", "Delete", Answer::Yes);
    EXPECT_EQ(answer(), sentence("\"two\" was not deleted."));
    fs::remove(place);
    fs::rename(place.string() + " away", place);
    EXPECT_EQ(listed(), "one two ") << "nothing is lost";
}

/// Joysticks have no selection: their preset has all of them, and replaces.
TEST_F(PresetDialogs, EverySectionSavesWhatIsSelectedAndAddsItToAnotherProgram)
{
    struct Row {
        const PresetSection& section;
        QString record;         // "%" in it stands for one of these
        QStringList different;  // of the first and the second record, and of that of another program
        std::vector<RecordId> selected;
    };
    const auto id = [](const auto& item) { return static_cast<RecordId>(item.getPacked()); };
    const QString event = "<MidiEvent midiEvent='Note On,%'><Translation><DoNothing/></Translation></MidiEvent>";
    const QString axis = "<Axis joystick='0' axis='%'><Function midiEvent='Pitch Bend'/></Axis>";
    const MidiInput::MidiEvent note61{-1, -1, MidiEngine::MidiMessage(MidiEngine::Note(61))};
    const Key key = Key::fromXmlString("Shift B");
    const Row rows[] = {{PresetSections::LAYERS, "<Layer channel='%'/>", {"1", "2", "5"}, {1}},
                        {PresetSections::OSCILLATORS, "<Oscillator speed='%'/>", {"7", "8", "9"}, {1}},
                        {PresetSections::CONTROLS, "<Control cell='%'/>", {"1,2", "3,4", "5,6"}, {id(Cell{3, 4})}},
                        {PresetSections::COMPUTER_INPUT, noteKey("%", "C4").c_str(), {"A", "Shift B", "C"}, {id(key)}},
                        {PresetSections::MIDI_INPUT, event, {"60", "61", "62"}, {id(note61)}},
                        {PresetSections::JOYSTICK, axis, {"X", "Y", "Z"}, {}}};
    for (const Row& row : rows) {
        const std::string tag = row.section.rootElement;
        SCOPED_TRACE(tag);
        const auto textOf = [&] {
            settle();
            const std::string program = OpenWindow::commands().sendGetProgramAsString();
            const std::size_t start = program.find("<" + tag + " ");
            return program.substr(start, program.find("</" + tag + ">") - start);
        };
        const auto load = [&](std::initializer_list<int> records) {
            std::string text = "<F><Program><" + tag + ">";
            for (const int each : records) text += QString(row.record).replace('%', row.different[each]).toStdString();
            folder.write("a.prg", text + "</" + tag + "></Program></F>");
            OpenWindow::commands().postLoadProgram(path("a.prg"));
            return textOf();
        };
        const std::string expected = row.selected.empty() ? load({0, 1}) : load({2, 1});
        load({0, 1});
        Gui::Preset::PresetCtl presetRow(*gui, row.section, &edit("Preset of the keys"), [&] { return row.selected; });
        presetRow.addPreset("!some", true);
        const std::string before = load({2});
        auto& list = *presetRow.findChild<QLineEdit*>();
        dynamic_cast<Gui::ComboBox&>(list).onChange(0);
        EXPECT_EQ(textOf(), expected);
        EXPECT_EQ(list.text().toStdString(), "!some");
        gui->getEdits().undo();
        EXPECT_EQ(textOf(), before);
        EXPECT_EQ(list.text().toStdString(), "none");
    }
}

TEST_F(PresetDialogs, TheKeysPlayOnUntilThereIsATextToType)
{
    gui->setFocus();
    EXPECT_EQ(key(QEvent::KeyPress), "D4 on");
    click("Preset of the keys: save and edit");
    EXPECT_EQ(played(), "D4 off") << "a menu takes the keys";
    choose("Edit Presets...");
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog("Presets")));
    EXPECT_EQ(key(QEvent::KeyRelease), "");
    EXPECT_EQ(key(QEvent::KeyPress), "D4 on");
    EXPECT_EQ(key(QEvent::KeyRelease), "D4 off");
    EXPECT_EQ(key(QEvent::KeyPress), "D4 on");
    pressIn("Presets", "Add");
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog("Add Preset")));
    EXPECT_EQ(played(), "D4 off");
    lineIn("Add Preset").setFocus();
    EXPECT_EQ(key(QEvent::KeyPress), "");
    EXPECT_EQ(lineIn("Add Preset").text(), "w");
}

TEST_F(PresetDialogs, SequencesAreWrittenByTheBackendAndListedInTheWindow)
{
    const std::string file = SequenceManagement::SequencePresetManager::getPresetPath("Up");
    const auto expect = [&](const std::string& notes) {
        settle();
        EXPECT_EQ(std::ranges::count(gui->getSequencePresetList(), "Up"), notes.empty() ? 0 : 1);
        EXPECT_EQ(orv->getSequencePresetManager().exists("Up"), !notes.empty());
        EXPECT_EQ(fs::exists(file), !notes.empty());
        EXPECT_NE(folders.read(file).find(notes), std::string::npos) << notes;
    };
    EXPECT_FALSE(gui->editSequencePreset("Up", "0"));
    EXPECT_FALSE(gui->addSequencePreset("../Up", "0"));
    expect("");
    EXPECT_TRUE(gui->addSequencePreset("Up", "0,4,7"));
    expect(">0,4,7<");
    const auto edit = [this] { return gui->editSequencePreset("Up", "0,12") ? answer() : "refused"; };
    EXPECT_EQ(onFullDisk(edit), "Error: The folder \"Sequences\" could not be changed.");
    expect(">0,4,7<");
    EXPECT_EQ(edit(), "");
    expect(">0,12<");
    fs::remove(file);
    fs::create_directories(file + "/in the way");
    gui->deleteSequencePreset("Up");
    EXPECT_EQ(answer(), "Error: The folder \"Sequences\" could not be changed.");
    fs::remove(file + "/in the way");
    gui->deleteSequencePreset("Up");
    expect("");
}
