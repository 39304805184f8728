#include <chrono>
#include <filesystem>
#include <thread>

#include "api/HostState.h"
#include "backend/sections/RecoveryState.h"
#include "platform/WholeFile.h"
#include "tests/core/EditStage.h"

using namespace Backend;
namespace fs = std::filesystem;
using Kind = SelectType::Kind;

namespace
{
/// The start of a host whose window edits programs; its user has what another process left.
struct RecoveryStage : EditStage {
    explicit RecoveryStage(const std::string& left = "")
    {
        fs::create_directories(file().parent_path());
        EXPECT_FALSE(!left.empty() && WholeFile::replace(file(), left));
        commands().postKeepDrafts(true);
        rest();
    }
    void keepRecovery(const RecoveryPlan& plan = {})
    {
        commands().postKeepRecovery(plan);
        rest();
    }

    fs::path file() const { return fs::path(Folders::getSettings()) / "Brinlow Software" / "Stage" / "recovery-1"; }
    std::string content() const
    {
        std::vector<std::uint8_t> bytes;
        WholeFile::read(file(), 1u << 24, bytes);
        return {bytes.begin(), bytes.end()};
    }
    /// The content of the file as soon as that is true of it.
    template <class Condition>
    std::string await(Condition isIt) const
    {
        for (;; std::this_thread::sleep_for(std::chrono::milliseconds(5))) {
            const std::string text = content();
            auto state = RecoveryState::fromText(text);
            if (state && isIt(*state)) return text;
        }
    }
};
}  // namespace

TEST(Recovery, TheNextStartHasBankProgramDraftsAndHistories)
{
    const TemporaryFolder files;
    const std::string bank = ::textOf(files / "b\xC3\xA4nk.bnk");
    std::string left;
    {
        RecoveryStage stage;
        fs::copy_file(stage.makeBank(3), pathOf(bank));
        stage.keepRecovery();
        EXPECT_FALSE(fs::exists(stage.file())) << "nothing has changed";
        stage.load(bank);
        stage.changeProgram(Kind::specific, 1);
        stage.rename("Mine");
        stage.changeProgram(Kind::up);
        stage.set("Layers", 0, "transpose", "+1");
        stage.set("Layers", 1, "transpose", "+2");
        stage.undo();
        left = stage.await([](RecoveryState& state) { return state.program.history.redo() != nullptr; });
        stage.rename("Third");
        stage.await([](RecoveryState& state) { return state.program.text.find("Third") != std::string::npos; });
        stage.commands().sendEnd();
        EXPECT_FALSE(fs::exists(stage.file())) << "an ordinary end";
    }
    for (const bool discards : {false, true}) {
        RecoveryStage stage(left);
        stage.keepRecovery();
        EXPECT_EQ(stage.current(), "P2 2 102 3");
        EXPECT_EQ(stage.orv->getBank().name, bank);
        stage.marks();
        if (discards) {
            stage.commands().postDiscardRecovered();
            EXPECT_EQ(stage.current(), "P2 2 102 3");
            EXPECT_EQ(stage.marks(), "as saved 0");
            EXPECT_EQ(stage.changeProgram(Kind::down), "P1 1 101 2");
            continue;
        }
        EXPECT_EQ(stage.redo(), "transpose +2");
        EXPECT_EQ(stage.undo(), "transpose +2");
        EXPECT_EQ(stage.undo(), "transpose +1");
        EXPECT_EQ(stage.marks(), "as saved 1");
        EXPECT_EQ(stage.changeProgram(Kind::down), "Mine 1 101 2");
        EXPECT_EQ(stage.undo(), "name Mine");
    }
}

TEST(Recovery, AFileThatIsNotRestoredIsNeverOverwritten)
{
    const RecoveryState elsewhere{.bank = "/no/such.bnk", .screens = "", .program = {"<Program/>", {}}};
    for (const std::string& left : {std::string("no recovery file"), elsewhere.toText(), elsewhere.toText() + "x"}) {
        RecoveryStage stage(left);
        stage.loadProgram(stage.makeBank(3), 1);
        stage.keepRecovery();
        EXPECT_EQ(stage.current(), "P1 1 101 2");
        const bool isWhole = left == elsewhere.toText();
        const fs::path kept = isWhole ? stage.file() : fs::path(stage.file().string() + ".unreadable");
        EXPECT_TRUE(fs::exists(kept)) << "its bank may be there again, or somebody can repair it";
        stage.rename("Mine");
        stage.commands().sendEnd();
        EXPECT_EQ(fs::exists(stage.file()), isWhole);
    }
}

TEST(Recovery, TheWindowIsToldThatItCannotBeWritten)
{
    RecoveryStage stage;
    stage.keepRecovery();
    fs::create_directory(stage.file());
    stage.rename("Mine");
    while (stage.received([](Message& message) { return message.number == GuiMessage::RECOVERY ? "it cannot" : ""; }) !=
           "it cannot")
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    fs::remove(stage.file());
    stage.rename("Again");
    stage.await([](RecoveryState& state) { return state.program.text.find("Again") != std::string::npos; });
}

TEST(Recovery, ABankOnTheCommandLineRestoresOnlyItsOwn)
{
    const TemporaryFolder files;
    RecoveryState state{
        .bank = (files / "a.bnk").string(), .number = 2, .screens = "", .program = {"<Program name='Mine'/>", {}}};
    const std::string ofCommandLine = state.toText();
    for (const bool isOfBank : {false, true}) {
        RecoveryStage stage(ofCommandLine);
        fs::remove(files / "a.bnk");
        fs::copy_file(stage.makeBank(3), files / "a.bnk");
        stage.load(isOfBank ? state.bank : stage.path("a.bnk"));
        stage.keepRecovery({.restores = RecoveryPlan::Restores::ofCurrentBank});
        EXPECT_EQ(stage.orv->getProgram().name, isOfBank ? "Mine" : "P0");
    }
}

TEST(Recovery, ALongHistoryHasItsLatestSteps)
{
    EditHistory history;
    history.setPreset("Layers", "Organ");
    for (std::uint32_t step = 1; step <= 1000; ++step)
        history.add({.name = std::to_string(step),
                     .gesture = step,
                     .changes = {{.section = "Layers", .fields = {{"transpose", std::to_string(step - 1), "1"}}}}});
    history.setSaved(history.getState());
    history.undo();
    const RecoveryState state{.bank = "", .screens = "", .program = {"", history}};
    auto read = RecoveryState::fromText(state.toText());
    ASSERT_TRUE(read);
    EditHistory& restored = read->program.history;
    EXPECT_EQ(restored.getPreset("Layers"), history.getPreset("Layers"));
    ASSERT_NE(restored.redo(), nullptr);
    EXPECT_FALSE(restored.isEdited());
    int steps = 0;
    while (restored.undo() != nullptr) ++steps;
    EXPECT_EQ(steps, 101);
    EXPECT_TRUE(restored.isEdited()) << "the oldest step is not where the program was loaded";
    EXPECT_LT(state.toText().size(), 1u << 15);
}
