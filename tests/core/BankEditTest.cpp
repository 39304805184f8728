#include "backend/model/BankEdit.h"

#include "tests/core/EditStage.h"

using namespace Backend;
using Change = BankEdit::Kind;

namespace
{
/// A window on the second of four programs, which keeps drafts.
struct BankStage : EditStage {
    BankStage()
    {
        commands().postKeepDrafts(true);
        std::string text = XML_HEAD + "<Bank>\n";
        for (int number = 0; number < 4; ++number)
            text += "<Program name=\"P" + std::to_string(number) + "\" tempo=\"" + std::to_string(100 + number) +
                    "\">\n<Layers><Layer/></Layers>\n</Program>\n";
        folder.write("a.bnk", text + "</Bank>\n");
        loadProgram(path("a.bnk"), 1);
        folder.write("b.bnk", "<Bank><Program name='x'/>\n<Program name='y'/>\n</Bank>");
    }

    /// What was reported, and the programs of the bank then.
    std::string done(const BankEdit& edit)
    {
        commands().postEditBank(edit);
        return reported();
    }
    std::string undone(const std::string& path = "")
    {
        commands().postUndoBank(path);
        return reported();
    }
    std::string redone()
    {
        commands().postRedoBank("");
        return reported();
    }

private:
    std::string reported()
    {
        std::string text = received([](Message& message) {
            std::string kind;
            if (message.number == GuiMessage::BANK_EDIT_DONE)
                GuiMessage::BANK_EDIT_DONE.deliver(message, [&](const BankEditDone& reportedEdit) {
                    constexpr const char* KINDS[] = {"done", "undone", "redone", "failed", "stale"};
                    kind = reportedEdit.name.empty() ? "nothing" : KINDS[static_cast<int>(reportedEdit.kind)];
                });
            return kind;
        });
        return text + ": " + names();
    }
};
}  // namespace

TEST(BankEdit, EveryKindIsDoneUndoneAndDoneAgain)
{
    BankStage stage;
    const std::string file = stage.folder.read("a.bnk");
    const struct {
        BankEdit edit;
        const char* names;
    } ROWS[] = {
        {{.kind = Change::add, .name = "1", .to = 1, .programName = "New"}, "P0 New P1 P2 P3"},
        {{.kind = Change::copy, .name = "2", .programs = {3, 0}, .to = 4}, "P0 P1 P2 P3 P3 P0"},
        {{.kind = Change::copy, .name = "3", .programs = {1}, .to = 2, .source = stage.path("b.bnk")}, "P0 P1 y P2 P3"},
        {{.kind = Change::move, .name = "4", .programs = {3, 1}, .to = 1}, "P0 P3 P1 P2"},
        {{.kind = Change::rename, .name = "5", .programs = {2}, .programName = "Z"}, "P0 P1 Z P3"},
        {{.kind = Change::remove, .name = "6", .programs = {2, 0}}, "P1 P3"},
    };
    for (const auto& [edit, names] : ROWS) {
        EXPECT_EQ(stage.done(edit), std::string("done: ") + names);
        EXPECT_EQ(stage.undone(), "undone: P0 P1 P2 P3");
        EXPECT_EQ(stage.folder.read("a.bnk"), file) << names;
        EXPECT_EQ(stage.redone(), std::string("redone: ") + names);
        EXPECT_EQ(stage.undone(), "undone: P0 P1 P2 P3");
        EXPECT_EQ(stage.current(), "P1 1 101 1") << names;
    }
    EXPECT_EQ(stage.undone(), "nothing: P0 P1 P2 P3");
    for (const BankEdit& wrong : {BankEdit{.kind = Change::remove, .name = "7", .programs = {0, 1, 2, 3}},
                                  BankEdit{.kind = Change::rename, .name = "7", .programs = {4}},
                                  BankEdit{.kind = Change::add, .name = "7", .to = 5},
                                  BankEdit{.kind = Change::add, .name = "7", .bank = stage.path("c.bnk")}})
        EXPECT_EQ(stage.done(wrong), "failed: P0 P1 P2 P3");
    stage.commands().postChangeBankSize(3, NO_WINDOW);
    EXPECT_EQ(stage.redone(), "failed: P0 P1 P2") << "it was for four programs";
    stage.load(stage.path("a.bnk"));
    EXPECT_EQ(stage.redone(), "nothing: P0 P1 P2") << "another program may have changed the file";
}

TEST(BankEdit, DraftsAndTheCurrentProgramGoWithTheirPlaces)
{
    BankStage stage;
    stage.rename("Mine");
    stage.changeProgram(SelectType::Kind::specific, 2);
    stage.rename("Third");
    EXPECT_EQ(stage.done({.kind = Change::move, .name = "m", .programs = {1, 2}, .to = 4}), "done: P0 P3 P1 P2");
    EXPECT_EQ(stage.current(), "Third 3 102 1") << "it plays on";
    EXPECT_EQ(stage.changeProgram(SelectType::Kind::down), "Mine 2 101 1");
    EXPECT_EQ(stage.undo(), "name Mine");
    EXPECT_EQ(stage.redo(), "name Mine");

    EXPECT_EQ(stage.done({.kind = Change::remove, .name = "r", .programs = {2, 3}}), "done: P0 P3");
    EXPECT_EQ(stage.current(), "P3 1 103 1") << "the one that is last now";
    EXPECT_EQ(stage.undone(), "undone: P0 P3 P1 P2");
    EXPECT_EQ(stage.changeProgram(SelectType::Kind::up), "Mine 2 101 1");
    EXPECT_EQ(stage.changeProgram(SelectType::Kind::up), "Third 3 102 1");
    EXPECT_EQ(stage.undo(), "name Third");

    EXPECT_EQ(stage.done({.kind = Change::copy, .name = "c", .programs = {2}, .to = 0}), "done: Mine P0 P3 P1 P2")
        << "with its edits";
}

TEST(BankEdit, MovesBetweenBanksLoseNothing)
{
    BankStage stage;
    stage.rename("Mine");
    const std::string other = stage.path("b.bnk");
    EXPECT_EQ(stage.done({.kind = Change::move, .name = "m", .programs = {0, 1}, .source = other}),
              "failed: P0 P1 P2 P3")
        << "a bank keeps one program";
    EXPECT_EQ(stage.done({.kind = Change::move,
                          .name = "m",
                          .bank = other,
                          .programs = {1},
                          .to = 1,
                          .source = stage.path("a.bnk")}),
              "done: P0 P2 P3");
    EXPECT_EQ(joined(Bank::fromFile(other).programNames), "x Mine y");
    EXPECT_EQ(stage.undone(), "undone: P0 P1 P2 P3") << "each bank has its own history";
    EXPECT_EQ(stage.undone(other), "undone: P0 P1 P2 P3");
    EXPECT_EQ(joined(Bank::fromFile(other).programNames), "x y");
}

TEST(BankEdit, NothingIsDoneToABankThatIsNotAsItWasShown)
{
    BankStage stage;
    const Bank shown = stage.orv->getBank();
    stage.folder.write("a.bnk", "<Bank><Program name='Q0'/><Program name='Q1'/></Bank>");
    const BankEdit edit{.kind = Change::remove, .name = "r", .programs = {0}, .shown = {shown}};
    EXPECT_EQ(stage.done(edit), "stale: Q0 Q1") << "and the window gets the programs";
    EXPECT_EQ(joined(Bank::fromFile(stage.path("a.bnk")).programNames), "Q0 Q1");
}

TEST(BankEdit, ANewBankAndACopyAreTheCurrentOnes)
{
    BankStage stage;
    const auto make = [&](const char* file, NewBank content) {
        stage.commands().postMakeBank(stage.path(file), content, NO_WINDOW);
        stage.rest();
        return stage.current() + ": " + joined(stage.orv->getBank().programNames);
    };
    stage.rename("Mine");
    EXPECT_EQ(make("c.bnk", NewBank::copy), "Mine 1 101 1: P0 P1 P2 P3") << "it plays on";
    EXPECT_EQ(stage.folder.read("c.bnk"), stage.folder.read("a.bnk"));
    EXPECT_EQ(stage.undo(), "name Mine");
    EXPECT_EQ(make("b.bnk", NewBank::empty), "P1 1 101 1: P0 P1 P2 P3") << "what is there is not replaced";
    EXPECT_EQ(make("d.bnk", NewBank::empty), "Empty 0 120 0: Empty");
    EXPECT_EQ(make("missing/e.bnk", NewBank::copy), "Empty 0 120 0: Empty");
}
