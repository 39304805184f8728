#include <QListWidget>
#include <QRadioButton>
#include <filesystem>

#include "api/OrvUtils.h"
#include "backend/files/RegistrySettings.h"
#include "backend/messages/GuiMessages.h"
#include "backend/model/PresetList.h"
#include "backend/model/PresetSections.h"
#include "backend/model/Program.h"
#include "gui/presets/PresetGuiOwner.h"
#include "tests/gui/DialogHands.h"
#include "tests/gui/FullDisk.h"

using namespace Backend;
namespace fs = std::filesystem;

namespace
{
constexpr const char* WHOLE_PROGRAM = "<Program name=\"Alone\" tempo=\"77\">\n</Program>\n";

struct FileDialogs : DialogHands {
    std::string current() { return orv->getProgram().name + " of " + orv->getBank().name; }

    void openSaveDialog(const QString& target, const QString& name = {})
    {
        click("Save");
        auto& save = dialog("Save");
        if (!name.isEmpty()) lineIn("Save").setText(name);
        if (!target.isEmpty()) buttonIn<QRadioButton>(save, target).setChecked(true);
    }
    QListWidget& programs() { return *dialog("Save").findChild<QListWidget*>(); }
};
}  // namespace

TEST_F(FileDialogs, LoadABankOrAProgramAndSayWhereThereIsNone)
{
    folder.write("Alone.prg", std::string("<ProgramFile>\n") + WHOLE_PROGRAM + "</ProgramFile>\n");
    folder.write("Other.bnk", std::string("<Bank>\n") + WHOLE_PROGRAM + "</Bank>\n");
    folder.write("Text.prg", "no program");
    folder.write("Text.bnk", "no bank");

    click("Load");
    chooseFile("Load", (folder / "Alone.prg").string());
    EXPECT_EQ(current(), "Alone of " + (folder / "Three.bnk").string());
    EXPECT_TRUE(isPlayingAgain());
    click("Load");
    chooseFile("Load", (folder / "Other.bnk").string());
    EXPECT_EQ(current(), "Alone of " + (folder / "Other.bnk").string());
    EXPECT_EQ(said(), "");

    commands().postLoadBank((folder / "Three.bnk").string());
    click("Next program");
    struct Row {
        const char* file;
        const char* said;
    };
    for (const Row& row : {Row{"Other.bnk", "Load: \"Other.bnk\" has no program 2."},
                           Row{"Text.prg", "Load: There is no program in \"Text.prg\"."},
                           Row{"Text.bnk", "Load: There is no program in \"Text.bnk\"."}}) {
        click("Load");
        chooseFile("Load", (folder / row.file).string());
        EXPECT_EQ(answer(), row.said);
    }
    click("Load");
    chooseFile("Load", (folder / "Missing.bnk").string());
    EXPECT_EQ(answer(), "Error: There is no file \"Missing.bnk\".");
    QTest::keyClick(&dialog("Load"), Qt::Key_Escape);
    EXPECT_EQ(dialogs(), "");
}

TEST_F(FileDialogs, StartInTheFolderOfTheBanks)
{
    click("Load");
    const auto& load = static_cast<QFileDialog&>(dialog("Load"));
    EXPECT_EQ(load.directory().path().toStdString(), OrvUtils::pathIn(OrvUtils::getOrvAppDataDir(), "Banks"));
    EXPECT_EQ(load.nameFilters()[0], "Bank Files (*.bnk)");
    EXPECT_EQ(load.nameFilters()[1], "Program Files (*.prg)");
    gui->showSaveDialog();
    gui->showLoadDialog();
    EXPECT_EQ(dialogs(), "Load") << "one at a time";
}

TEST_F(FileDialogs, SaveAProgramInItsPlaceWithoutAQuestion)
{
    commands().postChangeTempo({.relative = false, .value = 99}, true);
    gui->getWindowHandle().post({.number = GuiMessage::SHOW_SAVE_DIALOG});
    settle();
    EXPECT_EQ(lineIn("Save").text(), "P0");
    EXPECT_EQ(programs().currentRow(), 0);
    EXPECT_EQ(programs().item(2)->text(), "3: P2");
    pressIn("Save", "Save");
    EXPECT_EQ(dialogs(), "");
    EXPECT_NE(folder.read("Three.bnk").find("<Program name=\"P0\" tempo=\"99\""), std::string::npos);
    EXPECT_TRUE(isPlayingAgain());
}

TEST_F(FileDialogs, AskBeforeAnotherProgramOfTheBankIsReplaced)
{
    openSaveDialog({}, "  Organ & <Bass> ");
    pressIn("Save", "Save");
    EXPECT_EQ(answer(Answer::No), "Confirm Overwrite: Program 1 \"P0\" will be replaced. Continue?");
    programs().setCurrentRow(2);
    pressIn("Save", "Save");
    EXPECT_EQ(answer(Answer::No), "Confirm Overwrite: Program 3 \"P2\" will be replaced. Continue?");
    EXPECT_EQ(namesIn("Three.bnk"), "P0, P1, P2");
    EXPECT_EQ(dialogs(), "Save") << "a no returns to it";
    pressIn("Save", "Save");
    answer(Answer::Yes);
    EXPECT_EQ(namesIn("Three.bnk"), "P0, P1, Organ & <Bass>");
    EXPECT_EQ(dialogs(), "");
}

TEST_F(FileDialogs, RefuseToSaveWithoutANameOrAnotherProgramThanWasShown)
{
    openSaveDialog({}, "  ");
    pressIn("Save", "Save");
    EXPECT_EQ(answer(), "Error: Name cannot be blank");
    lineIn("Save").setText("Mine");
    commands().postChangeProgram({.kind = SelectType::Kind::up});
    settle();
    pressIn("Save", "Save");
    EXPECT_EQ(answer(), "Error: Another program was loaded in the meantime. The dialog shows that one now.");
    EXPECT_EQ(lineIn("Save").text(), "P1");
    EXPECT_EQ(programs().currentRow(), 1);
    EXPECT_EQ(namesIn("Three.bnk"), "P0, P1, P2");
}

TEST_F(FileDialogs, SaveToAnotherBankOrAFileAndAskBeforeItIsReplaced)
{
    folder.write("Other.bnk", "<Bank>\n<Program name=\"Old\">\n</Program>\n</Bank>\n");
    openSaveDialog("In another bank...", "New");
    pressIn("Save", "Save");
    chooseFile("Save To Bank", (folder / "Other.bnk").string());
    EXPECT_EQ(answer(Answer::Yes), "Confirm Overwrite: Program 1 \"Old\" of \"Other.bnk\" will be replaced. Continue?");
    EXPECT_EQ(namesIn("Other.bnk"), "New");
    EXPECT_EQ(current(), "New of " + (folder / "Other.bnk").string());

    commands().postLoadBank((folder / "Three.bnk").string());
    click("Next program");
    openSaveDialog("In another bank...");
    pressIn("Save", "Save");
    chooseFile("Save To Bank", (folder / "Other.bnk").string());
    EXPECT_EQ(answer(), "Error: \"Other.bnk\" has no program 2 that this one could replace.");
    QTest::keyClick(&dialog("Save"), Qt::Key_Escape);

    openSaveDialog("As a program file...", "What? A/B");
    pressIn("Save", "Save");
    EXPECT_EQ(dialog("Save To Program File").findChild<QLineEdit*>("fileNameEdit")->text(), "What AB.prg");
    chooseFile("Save To Program File", (folder / "Solo 1.5").string());
    EXPECT_EQ(namesIn("Solo 1.5.prg"), "What? A/B");
    EXPECT_EQ(dialogs(), "");

    openSaveDialog("As a program file...", "Third");
    pressIn("Save", "Save");
    struct Row {
        std::string file;
        std::string said;
    };
    const std::string base = (folder / "").string();
    for (const Row& row :
         {Row{base + "a:b", R"(Error: Name cannot contain any of the following characters: \ / : * ? " < > |)"},
          Row{base + "none/x.prg", "Error: There is no folder \"" + base + "none\"."}}) {
        chooseFile("Save To Program File", row.file);
        EXPECT_EQ(answer(), row.said);
    }
    chooseFile("Save To Program File", (folder / "SOLO 1.5.PRG").string());
    EXPECT_EQ(namesIn("SOLO 1.5.prg"), "Third") << "the extension that loading knows";
    openSaveDialog("As a program file...", "Fourth");
    pressIn("Save", "Save");
    chooseFile("Save To Program File", (folder / "Solo 1.5.prg").string());
    EXPECT_EQ(answer(Answer::No), "Confirm Overwrite: \"Solo 1.5.prg\" already exists. Overwrite?");
    EXPECT_EQ(namesIn("Solo 1.5.prg"), "What? A/B");
}

TEST_F(FileDialogs, KeepTheFileAndSaySoWhereItCannotBeWritten)
{
    const std::string before = folder.read("Three.bnk");
    {
        openSaveDialog({});
        const FullDisk full;
        pressIn("Save", "Save");
        EXPECT_EQ(said(), "Error: The program could not be saved; \"Three.bnk\" is as it was.");
    }
    answer();
    EXPECT_EQ(folder.read("Three.bnk"), before);
    EXPECT_EQ(orv->getProgram().name, "P0") << "what is not saved is still there";
    {
        openFileMenu("Change Bank Size...");
        const FullDisk full;
        enter("Change Bank Size", "9");
        EXPECT_EQ(said(), "Error: The bank could not be written; \"Three.bnk\" is as it was.");
    }
    answer();
    EXPECT_EQ(folder.read("Three.bnk"), before);
    EXPECT_EQ(folder.contents(), "Three.bnk") << "nothing is left over";

    openSaveDialog("As a program file...");
    pressIn("Save", "Save");
    chooseFile("Save To Program File", "/proc/x");
    EXPECT_EQ(answer(), "Error: The program could not be saved; \"x.prg\" is as it was.");
    EXPECT_EQ(dialogs(), "");
}

TEST_F(FileDialogs, ChangeTheSizeOfTheBankAndAskBeforeProgramsGo)
{
    for (const char* wrong : {"0", "-1", "many", "10000"}) {
        openFileMenu("Change Bank Size...");
        enter("Change Bank Size", wrong);
        EXPECT_EQ(answer(), "Error: Enter a number from 1 to 9999");
        QTest::keyClick(&dialog("Change Bank Size"), Qt::Key_Escape);
    }
    openFileMenu("Change Bank Size...");
    EXPECT_EQ(lineIn("Change Bank Size").text(), "3");
    enter("Change Bank Size", "3");
    EXPECT_EQ(dialogs(), "") << "nothing to do";
    openFileMenu("Change Bank Size...");
    enter("Change Bank Size", "5");
    EXPECT_EQ(namesIn("Three.bnk"), "P0, P1, P2, Empty, Empty");
    openFileMenu("Change Bank Size...");
    enter("Change Bank Size", "2");
    EXPECT_EQ(answer(Answer::No), "Change Bank Size: Programs 3 to 5 of the bank will be deleted. Continue?");
    EXPECT_EQ(namesIn("Three.bnk"), "P0, P1, P2, Empty, Empty");
    QTest::keyClick(&lineIn("Change Bank Size"), Qt::Key_Return);
    answer(Answer::Yes);
    EXPECT_EQ(namesIn("Three.bnk"), "P0, P1");
    EXPECT_EQ(gui->getNumberOfPrograms(), 2);
    EXPECT_EQ(dialogs(), "");
}

TEST_F(FileDialogs, MakeTheBankTheOneForTheStart)
{
    openFileMenu("Set As Default Bank...");
    EXPECT_EQ(answer(Answer::Yes),
              "Default Bank: \"Three.bnk\" will be loaded at every start, and now: what was not "
              "saved is lost. Continue?");
    EXPECT_EQ(orv->getRegistrySettings().getDefaultBank(), (folder / "Three.bnk").string());
    click("More about files");
    EXPECT_EQ(menu(), "Change Bank Size..., -Set As Default Bank..., Import Version 2 File...");
}

TEST_F(FileDialogs, ImportFilesOfVersion2)
{
    const auto import = [this](const char* file) {
        openFileMenu("Import Version 2 File...");
        chooseFile("Select Version 2 File To Import", (folder / file).string());
    };
    folder.write("old.bnk", "P 1 Two_Hands 0\n\nP 2 One_Hand 0\n");
    import("old.bnk");
    chooseFile("Select Name Of New File", (folder / "old.bnk").string());
    EXPECT_EQ(answer(Answer::Yes), "Confirm Overwrite: \"old.bnk\" already exists. Overwrite?");
    EXPECT_EQ(answer(), "Error: A file cannot be imported into itself.");
    import("old.bnk");
    chooseFile("Select Name Of New File", (folder / "new").string());
    EXPECT_EQ(namesIn("new.bnk"), "Two Hands, One Hand");
    EXPECT_EQ(folder.read("old.bnk"), "P 1 Two_Hands 0\n\nP 2 One_Hand 0\n");

    folder.write("old.PRG", "P 1 Solo 0\n");
    import("old.PRG");
    {
        const FullDisk full;
        chooseFile("Select Name Of New File", (folder / "solo").string());
        EXPECT_EQ(said(), "Error: \"old.PRG\" could not be imported; nothing was written.");
    }
    answer();
    import("old.PRG");
    chooseFile("Select Name Of New File", (folder / "solo").string());
    EXPECT_EQ(namesIn("solo.prg"), "Solo");

    folder.write("old.pst", "\nkey\nK\n");
    import("old.pst");
    EXPECT_EQ(lineIn("Enter Preset Name").text(), "default preset name");
    enter("Enter Preset Name", "  ");
    EXPECT_EQ(answer(), "Error: Entry cannot be blank");
    enter("Enter Preset Name", "Mine");
    EXPECT_EQ(dialogs(), "");
    EXPECT_NE(gui->getPresetList(PresetSections::COMPUTER_INPUT).find("Mine"), nullptr);
    import("old.pst");
    enter("Enter Preset Name", "Mine");
    EXPECT_EQ(answer(Answer::No), "Confirm Overwrite: Preset already exists. Overwrite?");

    QTest::keyClick(&dialog("Enter Preset Name"), Qt::Key_Escape);

    folder.write("any.txt", "P 1 Solo 0\n");
    import("any.txt");
    EXPECT_EQ(dialogs(), "") << "no file of version 2";
}
