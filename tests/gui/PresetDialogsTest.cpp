#include <QCheckBox>
#include <QListWidget>
#include <algorithm>
#include <fstream>

#include "api/OrvUtils.h"
#include "backend/files/SequencePresetManager.h"
#include "backend/model/PresetSections.h"
#include "tests/gui/DialogHands.h"
#include "tests/gui/FullDisk.h"

using namespace Backend;
namespace fs = std::filesystem;

namespace
{
constexpr const char* CHARACTERS = R"(Error: Name cannot contain any of the following characters: \ / : * ? " < > |)";

struct PresetDialogs : DialogHands {
    PresetDialogs()
    {
        gui->showScreen(Screen::computerInput, true);
        loadKey("Q", "C4");
        save("one");
        loadKey("W", "D4");
        save("two");
        const PresetList factory = presets().getList();
        for (const auto& entry : factory.getEntries())
            if (entry.name != "one" && entry.name != "two") commands().postDeletePreset(entry.name);
        settle();
    }

    ComputerInput::ComputerInputMessageManager& commands() { return orv->getComputerInputMessageManager(); }
    PresetManager& presets() { return orv->getComputerInputManager().getPresets(); }
    void save(const std::string& name)
    {
        commands().postSavePreset(name, {});
        settle();
    }
    std::string keys()
    {
        std::string all;
        const auto iterator = orv->getComputerInputManager().getKeys().createIterator();
        while (const auto* key = iterator->next()) all += key->key.toXmlString();
        return all;
    }

    void openMenu(const QString& item)
    {
        click("Preset of the keys: save and edit");
        choose(item);
    }
    QListWidget& names() { return *dialog("Presets").findChild<QListWidget*>(); }
    void select(const QString& name) { names().setCurrentItem(names().findItems(name, Qt::MatchExactly).at(0)); }
    /// The dialog's list, the list of the keys' row and the folder, which agree.
    std::string listed()
    {
        std::string inDialog, inFolder, inRow;
        const auto add = [](std::string& all, const std::string& name) { all += (all.empty() ? "" : ", ") + name; };
        for (int row = 0; row < names().count(); ++row) add(inDialog, names().item(row)->text().toStdString());
        for (const auto& entry : gui->getPresetList(PresetSections::COMPUTER_INPUT).getEntries())
            add(inRow, entry.name);
        std::vector<std::string> files;
        for (const auto& file : fs::directory_iterator(presets().getFolder())) files.push_back(file.path().stem());
        std::sort(files.begin(), files.end());
        for (const auto& file : files) add(inFolder, file);
        return inDialog == inRow && inRow == inFolder ? inDialog : inDialog + " / " + inRow + " / " + inFolder;
    }
    std::string contentOf(const std::string& name)
    {
        std::ifstream file(presets().getPresetPath(name));
        return {std::istreambuf_iterator<char>(file), {}};
    }
};
}  // namespace

TEST_F(PresetDialogs, AddSavesTheKeysUnderANameThatAFileCanHave)
{
    openMenu("Edit Presets...");
    pressIn("Presets", "Add");
    const auto& selectedOnly = buttonIn<QCheckBox>(dialog("Add Preset"), "Selected Only");
    EXPECT_FALSE(selectedOnly.isEnabled()) << "nothing can be selected";
    enter("Add Preset", "   ");
    EXPECT_EQ(answer(), "Error: Name cannot be blank");
    for (const char* name : {"a\\b", "a/b", "a:b", "a*", "a?", "\"a\"", "<a", "a>", "a|b"}) {
        enter("Add Preset", name);
        EXPECT_EQ(answer(), CHARACTERS) << name;
    }
    EXPECT_EQ(listed(), "one, two");
    enter("Add Preset", "  Rag Time ");
    EXPECT_EQ(dialogs(), "Presets");
    EXPECT_EQ(listed(), "Rag Time, one, two");
    EXPECT_NE(contentOf("Rag Time").find("<ComputerInput merge=\"false\""), std::string::npos);

    const std::string before = contentOf("one");
    pressIn("Presets", "Add");
    enter("Add Preset", "one");
    EXPECT_EQ(answer(Answer::No), "Confirm Overwrite: Preset already exists. Overwrite?");
    EXPECT_EQ(contentOf("one"), before);
    EXPECT_EQ(dialogs(), "Add Preset, Presets") << "a no returns to it";
    QTest::keyClick(&lineIn("Add Preset"), Qt::Key_Return);
    answer(Answer::Yes);
    EXPECT_EQ(contentOf("one"), contentOf("two"));
    EXPECT_EQ(listed(), "Rag Time, one, two");
    pressIn("Presets", "Close");
    EXPECT_TRUE(isPlayingAgain());
}

TEST_F(PresetDialogs, DeleteAsksFirst)
{
    openMenu("Edit Presets...");
    pressIn("Presets", "Delete");
    pressIn("Presets", "Edit");
    EXPECT_EQ(dialogs(), "Presets") << "nothing is selected";
    select("one");
    pressIn("Presets", "Delete");
    EXPECT_EQ(answer(Answer::No), "Delete Preset: Are you sure you want to delete?");
    EXPECT_EQ(listed(), "one, two");
    pressIn("Presets", "Delete");
    answer(Answer::Yes);
    EXPECT_EQ(listed(), "two");
    EXPECT_EQ(keys(), "W") << "what is loaded stays";
}

TEST_F(PresetDialogs, EditGivesAnotherNameAlsoThatOfAnother)
{
    openMenu("Edit Presets...");
    select("one");
    pressIn("Presets", "Edit");
    EXPECT_EQ(lineIn("Edit Preset Name").text(), "one");
    enter("Edit Preset Name", " ");
    EXPECT_EQ(answer(), "Error: Name cannot be blank");
    enter("Edit Preset Name", "a|b");
    EXPECT_EQ(answer(), CHARACTERS);
    lineIn("Edit Preset Name").setText("Größe");
    QTest::keyClick(&lineIn("Edit Preset Name"), Qt::Key_Return);
    settle();
    EXPECT_EQ(listed(), "Größe, two");
    const std::string kept = contentOf("Größe");

    select("Größe");
    const QPoint place = names().visualItemRect(names().currentItem()).center();
    QTest::mouseClick(names().viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(names().viewport(), Qt::LeftButton, {}, place);
    enter("Edit Preset Name", "two");
    EXPECT_EQ(listed(), "two");
    EXPECT_EQ(contentOf("two"), kept);
}

TEST_F(PresetDialogs, TheListLoadsAPreset)
{
    auto& list = control<QLineEdit>("Preset of the keys");
    EXPECT_EQ(list.text(), "none");
    QTest::mouseClick(&list, Qt::LeftButton);
    EXPECT_EQ(menu(), "one, two");
    choose("one");
    EXPECT_EQ(keys(), "Q");
    EXPECT_EQ(list.text(), "one");
    openMenu("Save Preset As...");
    enter("Add Preset", "another");
    QTest::mouseClick(&list, Qt::LeftButton);
    EXPECT_EQ(menu(), "another, *one, two");
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
}

TEST_F(PresetDialogs, SayThatTheFolderTookNothingAndShowWhatIsThere)
{
    constexpr const char* SENTENCE = "Error: The folder \"Computer Input Presets\" could not be changed.";
    const std::string before = contentOf("two");
    openMenu("Edit Presets...");
    for (const QString name : {"three", "two"}) {
        pressIn("Presets", "Add");
        const FullDisk full;
        enter("Add Preset", name);
        if (name == "two") answer(Answer::Yes);
        EXPECT_EQ(answer(), SENTENCE);
    }
    EXPECT_EQ(listed(), "one, two");
    EXPECT_EQ(contentOf("two"), before);

    const fs::path place = presets().getFolder();
    fs::rename(place, place.string() + " away");
    std::ofstream(place) << "no folder";
    pressIn("Presets", "Add");
    enter("Add Preset", "three");
    EXPECT_EQ(answer(), SENTENCE);
    select("one");
    pressIn("Presets", "Edit");
    enter("Edit Preset Name", "four");
    EXPECT_EQ(answer(), SENTENCE);
    EXPECT_EQ(dialogs(), "Presets");
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
    const auto lists = [this] {
        settle();
        const auto& inWindow = gui->getSequencePresetList();
        return std::to_string(std::ranges::count(inWindow, "Up")) +
               (orv->getSequencePresetManager().exists("Up") ? "+" : "-");
    };
    const std::string file = SequenceManagement::SequencePresetManager::getPresetPath("Up");
    const auto holds = [&file](const char* text) {
        std::ifstream in(file);
        return std::string(std::istreambuf_iterator<char>(in), {}).find(text) != std::string::npos;
    };
    EXPECT_FALSE(gui->editSequencePreset("Up", "0"));
    EXPECT_FALSE(gui->addSequencePreset("../Up", "0"));
    EXPECT_EQ(lists(), "0-");
    EXPECT_TRUE(gui->addSequencePreset("Up", "0,4,7"));
    EXPECT_EQ(lists(), "1+");
    EXPECT_TRUE(holds(">0,4,7<"));
    {
        const FullDisk full;
        EXPECT_TRUE(gui->editSequencePreset("Up", "0,12"));
        settle();
    }
    EXPECT_EQ(answer(), "Error: The folder \"Sequences\" could not be changed.");
    EXPECT_TRUE(holds(">0,4,7<")) << "whole";
    EXPECT_TRUE(gui->editSequencePreset("Up", "0,12"));
    settle();
    EXPECT_TRUE(holds(">0,12<"));
    fs::remove(file);
    fs::create_directories(file + "/in the way");
    gui->deleteSequencePreset("Up");
    settle();
    EXPECT_EQ(answer(), "Error: The folder \"Sequences\" could not be changed.");
    fs::remove(file + "/in the way");
    gui->deleteSequencePreset("Up");
    EXPECT_EQ(lists(), "0-");
    EXPECT_FALSE(fs::exists(file));
}
