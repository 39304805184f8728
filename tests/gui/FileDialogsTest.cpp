#include <QRadioButton>

#include "api/OrvUtils.h"
#include "backend/messages/SettingMessages.h"
#include "backend/model/Edit.h"
#include "backend/model/PresetList.h"
#include "backend/model/PresetSections.h"
#include "backend/sections/layers/LayerManager.h"
#include "gui/framework/EditPoster.h"
#include "tests/gui/DialogHands.h"

using namespace Backend;

struct FileDialogs : DialogHands {
    FileDialogs() { folder.write("Other.bnk", "<Bank>\n<Program name=\"Alone\">\n</Program>\n</Bank>\n"); }

    std::string current() { return orv->getProgram().name + " of " + orv->getBank().name; }
    // They return what the message box said that followed.
    std::string load(const char* file, Answer reply = Answer::Ok)
    {
        openFileMenu("Load...");
        return chooseFile("Load", path(file), reply);
    }
    std::string save(const QString& target = {}, const QString& name = {}, Answer reply = Answer::No)
    {
        openFileMenu("Save...");
        if (!name.isEmpty()) lineIn("Save").setText(name);
        if (!target.isEmpty()) buttonIn<QRadioButton>(dialog("Save"), target).setChecked(true);
        return pressIn("Save", "Save", reply);
    }
    std::string folderOf(const char* file) { return std::filesystem::path(path(file)).parent_path().string(); }
    std::string changeBankSize(const QString& programs)
    {
        openFileMenu("Change Bank Size...");
        return enter("Change Bank Size", programs, Answer::No);
    }
};

TEST_F(FileDialogs, LoadABankOrAProgramAndSayWhereThereIsNone)
{
    folder.write("Alone.prg", "<ProgramFile>\n<Program name=\"Alone\">\n</Program>\n</ProgramFile>\n");
    folder.write("Text.prg", "no program");
    folder.write("Text.bnk", "no bank");
    EXPECT_EQ(load("Alone.prg"), "");
    EXPECT_EQ(current(), "Alone of " + path("Three.bnk"));
    EXPECT_TRUE(isPlayingAgain());
    EXPECT_EQ(load("Other.bnk"), "");
    EXPECT_EQ(current(), "Alone of " + path("Other.bnk"));

    commands().postLoadBank(path("Three.bnk"));
    click("Next program");
    EXPECT_EQ(load("Other.bnk"), "Load: \"Other.bnk\" has no program 2.");
    EXPECT_EQ(load("Text.prg"), "Load: There is no program in \"Text.prg\".");
    EXPECT_EQ(load("Text.bnk"), "Load: There is no program in \"Text.bnk\".");
    EXPECT_EQ(load("Missing.bnk"), "Error: There is no file \"Missing.bnk\".");
    leave("Load");
    EXPECT_EQ(dialogs(), "");
}

TEST_F(FileDialogs, AskBeforeEditsAreLostWhenTheUserWantsIt)
{
    commands().postKeepDrafts(true);
    const auto edit = [this] {
        Hands::wheel(control("Tempo"), 1);
        settle();
    };
    const auto askWhen = [this](BeforeLoss when) {
        commands().postSetting(SETTING<Settings::ASK_BEFORE_LOSS>(static_cast<int>(when)));
        settle();
    };
    const auto number = [this] { return orv->getProgram().number; };
    const std::string ofOne =
        "Changes that are not saved: \"" + orv->getProgram().name + "\" was edited and is not saved. Lose its changes?";
    edit();
    EXPECT_EQ(load("Other.bnk", Answer::No), ofOne);
    EXPECT_EQ(orv->getBank().name, path("Three.bnk"));
    click("Next program");
    EXPECT_EQ(answer(), "") << "it is kept as a draft";
    EXPECT_EQ(number(), 1);
    int closed = 0;
    const auto close = [&] { gui->askBeforeLoss(Gui::OrvGuiIF::Loss::ofAll, [&] { ++closed; }); };
    close();
    EXPECT_EQ(answer(Answer::Yes),
              "Changes that are not saved: Edited programs that are not saved: 1. Lose their changes?");
    EXPECT_EQ(closed, 1);
    askWhen(BeforeLoss::never);
    close();
    EXPECT_EQ(closed, 2);

    askWhen(BeforeLoss::ask);
    click("Previous program");
    click("Next program");
    EXPECT_EQ(answer(Answer::No), ofOne);
    EXPECT_EQ(number(), 0);
    click("Next program");
    EXPECT_EQ(answer(Answer::Yes), ofOne);
    EXPECT_EQ(number(), 1);
    close();
    EXPECT_EQ(closed, 3) << "nothing is edited any more";
}

TEST_F(FileDialogs, StartInTheFolderOfTheBanks)
{
    const std::string banks = OrvUtils::pathIn(OrvUtils::getOrvAppDataDir(), "Banks");
    openFileMenu("Load...");
    const auto& dialogOfLoad = static_cast<QFileDialog&>(dialog("Load"));
    EXPECT_EQ(QDir::toNativeSeparators(dialogOfLoad.directory().path()).toStdString(), banks);
    EXPECT_EQ(dialogOfLoad.nameFilters().mid(0, 2).join(" "), "Bank Files (*.bnk) Program Files (*.prg)");
    gui->showSaveDialog();
    gui->showLoadDialog();
    EXPECT_EQ(dialogs(), "Load") << "one at a time";
}

TEST_F(FileDialogs, StartInTheFolderOfTheLastFileAndOfferTheLastFilesAgain)
{
    load("Other.bnk");
    openFileMenu("Load...");
    EXPECT_EQ(static_cast<QFileDialog&>(dialog("Load")).directory(),
              QDir(QString::fromStdString(folderOf("Other.bnk"))));
    leave("Load");
    click("Files");
    Hands::choose("Recent Files");
    choose("Three.bnk");
    EXPECT_EQ(current(), "P0 of " + path("Three.bnk"));
    EXPECT_EQ(control<QAbstractButton>("Status").toolTip(), "Loaded Three.bnk");

    QMimeData data;
    data.setUrls({QUrl::fromLocalFile("a.txt"), QUrl::fromLocalFile(QString::fromStdString(path("Other.bnk")))});
    drop(*surroundings.findChild<QWidget*>({}, Qt::FindDirectChildrenOnly), {10, 10}, data);
    EXPECT_EQ(current(), "Alone of " + path("Other.bnk"));

    for (const char* text : {"<Layers><Layer/><Layer/></Layers>", "<Layers>"}) {
        folder.write("Two.pst", text);
        data.setUrls({QUrl::fromLocalFile(QString::fromStdString(path("Two.pst")))});
        drop(*surroundings.findChild<QWidget*>({}, Qt::FindDirectChildrenOnly), {10, 10}, data);
        EXPECT_EQ(orv->getLayerManager().getLayers().size(), 2u);
    }
    EXPECT_EQ(control<QAbstractButton>("Status").toolTip(), "Two.pst has no preset");
    gui->getEdits().undo();
    settle();
    EXPECT_EQ(orv->getLayerManager().getLayers().size(), 0u) << "a step as any other";
}

TEST_F(FileDialogs, SayWhenAnotherProgramHasChangedTheBank)
{
    folder.write("Three.bnk", "<Bank>\n<Program name=\"Q0\"/>\n<Program name=\"Q1\"/>\n</Bank>\n");
    const std::string question =
        "File Changed: \"Three.bnk\" was changed by another program since it was read. Its other programs stay as they "
        "are now; this one is replaced.";
    EXPECT_EQ(save({}, {}, Answer::Cancel), question);
    EXPECT_EQ(namesIn("Three.bnk"), "Q0, Q1");
    folder.write("Three.bnk", "<Bank>\n<Program name=\"Q0\"/>\n<Program name=\"Q\"/>\n</Bank>\n");
    openFileMenu("Save...");
    EXPECT_EQ(pressIn("Save", "Save", Answer::Yes), "Confirm Overwrite: Program 1 \"Q0\" will be replaced. Continue?");
    EXPECT_EQ(answer(Answer::Save), question);
    EXPECT_EQ(dialogs(), "Save") << "elsewhere";
    pressIn("Save", "Save", Answer::Yes);
    EXPECT_EQ(namesIn("Three.bnk"), "P0, Q");
}

TEST_F(FileDialogs, SaveAProgramInItsPlaceWithoutAQuestion)
{
    commands().postChangeTempo({.relative = false, .value = 99}, true);
    gui->getWindowHandle().post({.number = GuiMessage::SHOW_SAVE_DIALOG});
    settle();
    EXPECT_EQ(lineIn("Save").text(), "P0");
    EXPECT_EQ(listIn("Save").currentRow(), 0);
    EXPECT_EQ(listIn("Save").item(2)->text(), "3: P2");
    pressIn("Save", "Save");
    EXPECT_EQ(dialogs(), "");
    EXPECT_NE(folder.read("Three.bnk").find("<Program name=\"P0\" tempo=\"99\""), std::string::npos);
    EXPECT_TRUE(isPlayingAgain());
}

TEST_F(FileDialogs, AskBeforeAnotherProgramOfTheBankIsReplaced)
{
    EXPECT_EQ(save({}, "  Organ & <Bass> "), "Confirm Overwrite: Program 1 \"P0\" will be replaced. Continue?");
    listIn("Save").setCurrentRow(2);
    for (const Answer reply : {Answer::No, Answer::Yes}) {
        EXPECT_EQ(namesIn("Three.bnk"), "P0, P1, P2");
        EXPECT_EQ(dialogs(), "Save") << "a no returns to it";
        EXPECT_EQ(pressIn("Save", "Save", reply), "Confirm Overwrite: Program 3 \"P2\" will be replaced. Continue?");
    }
    EXPECT_EQ(namesIn("Three.bnk"), "P0, P1, Organ & <Bass>");
    EXPECT_EQ(dialogs(), "");
}

TEST_F(FileDialogs, RefuseToSaveWithoutANameOrAnotherProgramThanWasShown)
{
    EXPECT_EQ(save({}, "  ", Answer::Ok), "Error: Name cannot be blank");
    lineIn("Save").setText("Mine");
    commands().postChangeProgram({.kind = SelectType::Kind::up});
    settle();
    EXPECT_EQ(pressIn("Save", "Save"),
              "Error: Another program was loaded in the meantime. The dialog shows that one now.");
    EXPECT_EQ(lineIn("Save").text(), "P1");
    EXPECT_EQ(listIn("Save").currentRow(), 1);
    EXPECT_EQ(namesIn("Three.bnk"), "P0, P1, P2");
}

TEST_F(FileDialogs, SaveToAnotherBankOrAFileAndAskBeforeItIsReplaced)
{
    save("In another bank, or a new one...", "New");
    EXPECT_EQ(chooseFile("Save To Bank", path("Other.bnk"), Answer::Yes),
              "Confirm Overwrite: Program 1 \"Alone\" of \"Other.bnk\" will be replaced. Continue?");
    EXPECT_EQ(namesIn("Other.bnk"), "New");
    EXPECT_EQ(current(), "New of " + path("Other.bnk"));

    commands().postLoadBank(path("Three.bnk"));
    click("Next program");
    save("In another bank, or a new one...");
    EXPECT_EQ(chooseFile("Save To Bank", path("Other.bnk")),
              "Error: \"Other.bnk\" has no program 2 that this one could replace.");
    pressIn("Save", "Save");
    EXPECT_EQ(chooseFile("Save To Bank", path("Brand new")), "") << "there is no such file yet";
    EXPECT_EQ(namesIn("Brand new.bnk"), "Empty, P1");
    EXPECT_EQ(current(), "P1 of " + path("Brand new.bnk"));

    const auto name = [this](const std::string& file) {
        return chooseFile("Save To Program File", path(file), file == "Solo 1.5.prg" ? Answer::No : Answer::Ok);
    };
    save("As a program file...", "What? A/B");
    EXPECT_EQ(dialog("Save To Program File").findChild<QLineEdit*>("fileNameEdit")->text(), "What AB.prg");
    EXPECT_EQ(name("Solo 1.5"), "");
    EXPECT_EQ(namesIn("Solo 1.5.prg"), "What? A/B");
    EXPECT_EQ(dialogs(), "");

    save("As a program file...", "Third");
    EXPECT_EQ(name("a?b"), R"(Error: Name cannot contain any of the following characters: \ / : * ? " < > |)");
    EXPECT_EQ(name("none/x.prg"), "Error: There is no folder \"" + path("none") + "\".");
    EXPECT_EQ(name("SOLO 2.5.PRG"), "");
    EXPECT_EQ(namesIn("SOLO 2.5.prg"), "Third") << "the extension that loading knows";
    save("As a program file...", "Fourth");
    EXPECT_EQ(name("Solo 1.5.prg"), "Confirm Overwrite: \"Solo 1.5.prg\" already exists. Overwrite?");
    EXPECT_EQ(namesIn("Solo 1.5.prg"), "What? A/B");
}

TEST_F(FileDialogs, KeepTheFileAndSaySoWhereItCannotBeWritten)
{
    const std::string before = folder.read("Three.bnk");
    const std::string files = folder.contents();
    EXPECT_EQ(onFullDisk([this] { return save({}, {}, Answer::Ok); }),
              "Error: The program could not be saved; \"Three.bnk\" is as it was.");
    EXPECT_EQ(folder.read("Three.bnk"), before);
    EXPECT_EQ(orv->getProgram().name, "P0") << "what is not saved is still there";
    openFileMenu("Change Bank Size...");
    EXPECT_EQ(onFullDisk([this] { return enter("Change Bank Size", "9"); }),
              "Error: The bank could not be written; \"Three.bnk\" is as it was.");
    EXPECT_EQ(folder.read("Three.bnk"), before);
    EXPECT_EQ(folder.contents(), files) << "nothing is left over";

    save("As a program file...");
    EXPECT_EQ(onFullDisk([this] { return chooseFile("Save To Program File", path("x")); }),
              "Error: The program could not be saved; \"x.prg\" is as it was.");
    EXPECT_TRUE(QTest::qWaitFor([this] { return dialogs().empty(); })) << dialogs();
}

TEST_F(FileDialogs, ChangeTheSizeOfTheBankAndAskBeforeProgramsGo)
{
    openFileMenu("Change Bank Size...");
    EXPECT_EQ(lineIn("Change Bank Size").text(), "3");
    for (const char* wrong : {"0", "-1", "many", "10000"})
        EXPECT_EQ(enter("Change Bank Size", wrong), "Enter a number from 1 to 9999") << wrong;
    EXPECT_EQ(enter("Change Bank Size", "3"), "");
    EXPECT_EQ(dialogs(), "") << "nothing to do";
    EXPECT_EQ(changeBankSize("5"), "");
    EXPECT_EQ(namesIn("Three.bnk"), "P0, P1, P2, Empty, Empty");
    EXPECT_EQ(changeBankSize("2"), "Change Bank Size: Programs 3 to 5 of the bank will be deleted. Continue?");
    EXPECT_EQ(namesIn("Three.bnk"), "P0, P1, P2, Empty, Empty");
    confirm(lineIn("Change Bank Size"), Answer::Yes);
    EXPECT_EQ(namesIn("Three.bnk"), "P0, P1");
    EXPECT_EQ(gui->getNumberOfPrograms(), 2);
    EXPECT_EQ(dialogs(), "");
}

TEST_F(FileDialogs, MakeTheBankTheOneForTheStart)
{
    openFileMenu("Set As Default Bank...");
    EXPECT_EQ(answer(Answer::Yes),
              "Default Bank: \"Three.bnk\" becomes the default bank and is loaded now: what was not saved is lost. "
              "Continue?");
    EXPECT_EQ(settings().getDefaultBank(), path("Three.bnk"));
    click("Files");
    EXPECT_EQ(
        menu(),
        "Load..., Save..., Change Bank Size..., -Set As Default Bank..., Import Version 2 File..., Programs..., New "
        "Bank..., Save Bank As..., Set List..., Recent Files");
}

TEST_F(FileDialogs, ImportFilesOfVersion2)
{
    const std::string old = "P 1 Two_Hands 0\n\nP 2 One_Hand 0\n";
    folder.write("old.bnk", old);
    folder.write("old.PRG", "P 1 Solo 0\n");
    folder.write("old.pst", "\nkey\nK\n");
    folder.write("any.txt", "P 1 Solo 0\n");
    const auto import = [this](const char* file) {
        openFileMenu("Import Version 2 File...");
        chooseFile("Select Version 2 File To Import", path(file));
    };
    const auto name = [this](const char* file) {
        return chooseFile("Select Name Of New File", path(file), Answer::Yes);
    };
    import("old.bnk");
    EXPECT_EQ(name("old.bnk"), "Confirm Overwrite: \"old.bnk\" already exists. Overwrite?");
    EXPECT_EQ(answer(), "Error: A file cannot be imported into itself.");
    import("old.bnk");
    EXPECT_EQ(name("new"), "");
    EXPECT_EQ(namesIn("new.bnk"), "Two Hands, One Hand");
    EXPECT_EQ(folder.read("old.bnk"), old);

    import("old.PRG");
    EXPECT_EQ(onFullDisk([this] { return chooseFile("Select Name Of New File", path("solo")); }),
              "Error: \"old.PRG\" could not be imported; nothing was written.");
    import("old.PRG");
    EXPECT_EQ(name("solo"), "");
    EXPECT_EQ(namesIn("solo.prg"), "Solo");

    import("old.pst");
    EXPECT_EQ(lineIn("Enter Preset Name").text(), "default preset name");
    EXPECT_EQ(enter("Enter Preset Name", "  "), "Entry cannot be blank");
    EXPECT_EQ(enter("Enter Preset Name", "Mine"), "");
    EXPECT_EQ(dialogs(), "");
    EXPECT_NE(gui->getPresetList(PresetSections::COMPUTER_INPUT).find("Mine"), nullptr);
    import("old.pst");
    EXPECT_EQ(enter("Enter Preset Name", "Mine", Answer::No), "Confirm Overwrite: Preset already exists. Overwrite?");
    leave("Enter Preset Name");

    import("any.txt");
    EXPECT_EQ(dialogs(), "") << "no file of version 2";
}
