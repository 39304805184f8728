#include "backend/messages/SettingMessages.h"
#include "tests/core/EditStage.h"

using namespace Backend;
using Kind = SelectType::Kind;

namespace
{
/// A window on the second of three programs, which keeps drafts.
struct DraftStage : EditStage {
    explicit DraftStage(bool keepsDrafts = true)
    {
        commands().postKeepDrafts(keepsDrafts);
        loadProgram(makeBank(3), 1);
    }

    void answer(BeforeLoss choice)
    {
        commands().postSetting(SETTING<Settings::ASK_BEFORE_LOSS>(static_cast<int>(choice)));
    }
};
}  // namespace

TEST(Drafts, AProgramThatIsLeftComesBackWithItsEditsAndItsHistory)
{
    DraftStage stage;
    const std::string stored = stage.text();
    stage.rename("Mine");
    stage.commands().postExecuteFunction("<ChangeTempo value='50'/>");
    stage.marks();
    EXPECT_EQ(stage.changeProgram(Kind::up), "P2 2 102 3");
    EXPECT_EQ(stage.marks(), "as saved 1");
    stage.set("Layers", 2, "transpose", "+1");
    EXPECT_EQ(stage.undo(), "transpose +1");
    EXPECT_EQ(stage.changeProgram(Kind::down), "Mine 1 50 2");
    EXPECT_EQ(stage.undo(), "name Mine");
    EXPECT_EQ(stage.current(), "P1 1 50 2");
    EXPECT_EQ(stage.changeProgram(Kind::up), "P2 2 102 3");
    EXPECT_EQ(stage.redo(), "transpose +1") << "the history of a program that is as saved";
    EXPECT_EQ(stage.changeProgram(Kind::down), "P1 1 101 2") << "what functions changed is gone";
    EXPECT_EQ(stage.text(), stored);
    EXPECT_EQ(stage.changeProgram(Kind::specific, 1), "P1 1 101 2");
    EXPECT_EQ(stage.redo(), "name Mine");
}

TEST(Drafts, AreKeptOnlyAsTheHostAndTheUserWant)
{
    DraftStage other(false);
    other.rename("Mine");
    other.changeProgram(Kind::up);
    EXPECT_EQ(other.changeProgram(Kind::down), "P1 1 101 2");
    EXPECT_EQ(other.undo(), "");

    DraftStage stage;
    stage.rename("Mine");
    stage.answer(BeforeLoss::never);
    stage.changeProgram(Kind::up);
    EXPECT_EQ(stage.changeProgram(Kind::down), "P1 1 101 2");
    EXPECT_EQ(stage.undo(), "");

    stage.answer(BeforeLoss::ask);
    stage.rename("Mine");
    stage.commands().postDiscardEdits();
    stage.changeProgram(Kind::up);
    stage.rename("Third");
    EXPECT_EQ(stage.changeProgram(Kind::down), "P1 1 101 2");
    EXPECT_EQ(stage.changeProgram(Kind::up), "Third 2 102 3");
    stage.load(stage.path("a.bnk"));
    EXPECT_EQ(stage.current(), "P2 2 102 3") << "loaded again";
}

TEST(Drafts, SavingNeitherLoadsNorEndsUndo)
{
    DraftStage stage;
    stage.rename("Mine");
    stage.received();
    stage.commands().postSaveToCurrentBank(2, NO_WINDOW);
    EXPECT_EQ(stage.current(), "Mine 1 101 2");
    EXPECT_EQ(stage.names(), "P0 P1 Mine");
    EXPECT_EQ(stage.marks(), "") << "its own place has it not";
    stage.commands().postSaveToCurrentBank(1, NO_WINDOW);
    EXPECT_EQ(stage.marks(), "as saved 0");
    EXPECT_EQ(stage.changeProgram(Kind::up), "Mine 2 101 2");
    EXPECT_EQ(stage.changeProgram(Kind::down), "Mine 1 101 2");
    EXPECT_EQ(stage.undo(), "name Mine");
    EXPECT_EQ(stage.current(), "P1 1 101 2");

    stage.commands().postSaveToBank(stage.path("b.bnk"), NO_WINDOW);
    EXPECT_EQ(stage.marks(), "edited 0, as saved 0");
    EXPECT_EQ(stage.redo(), "name Mine") << "in another bank";
    stage.commands().postChangeBankSize(1, NO_WINDOW);
    EXPECT_EQ(stage.current().substr(0, 7), "Empty 0");
    stage.commands().postChangeBankSize(2, NO_WINDOW);
    EXPECT_EQ(stage.changeProgram(Kind::up).substr(0, 7), "Empty 1") << "its draft went with its program";
}

TEST(Drafts, AProgramFileIsTheDraftOfItsNumber)
{
    DraftStage stage;
    stage.marks();
    stage.loadSections("<Layers/>");
    EXPECT_EQ(stage.marks(), "edited 0");
    stage.changeProgram(Kind::up);
    EXPECT_EQ(stage.changeProgram(Kind::down), "a 1 120 0");
    EXPECT_EQ(stage.undo(), "");
    stage.commands().postLoadProgram(stage.path("a.bnk"));
    EXPECT_EQ(stage.current(), "P1 1 101 2");
    EXPECT_EQ(stage.marks(), "as saved 1, edited 0, as saved 0");
}
