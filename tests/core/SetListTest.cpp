#include "backend/model/SetList.h"

#include "backend/messages/GuiMessages.h"
#include "backend/messages/SettingMessages.h"
#include "backend/model/BankEdit.h"
#include "tests/core/EditStage.h"

using namespace Backend;
using SetKind = SetListEdit::Kind;
using SetStep = SelectType::Kind;

namespace
{
/// A bank of four programs, P0 to P3, with the set list P2, P0 by its name alone, a missing one, P3, P0.
struct SetStage : EditStage {
    SetStage()
    {
        folder.write("a.set", setFile("on='true' position='1'"));
        commands().postKeepSetPosition(true);
        load(makeBank(4));
        shown();
    }

    static std::string setFile(const std::string& attributes)
    {
        return "<SetList " + attributes +
               "><Entry number='2' name='P2' note='capo 2'/><Entry number='7' name='P0'/><Entry number='1' name='X'/>"
               "<Entry number='3' name='P3'/><Entry number='0' name='P0'/></SetList>";
    }

    /// The list that the window has: "P2(capo 2) *P0 X? P3 P0", the current entry with a star, and the notices.
    std::string shown()
    {
        const std::string notices = received([this](Message& message) {
            std::string text;
            if (message.number == GuiMessage::SET_LIST)
                GuiMessage::SET_LIST.deliver(message, [this](const SetList& received) { list = received; });
            if (message.number == GuiMessage::BANK_EDIT_DONE)
                GuiMessage::BANK_EDIT_DONE.deliver(message, [&](const BankEditDone& done) {
                    if (done.kind == BankEditDone::Kind::failed) text = "failed";
                });
            if (message.number == GuiMessage::NOTICE) text = "notice " + std::to_string(message.wparam);
            return text;
        });
        return joined(list.getEntries(),
                      [this](const SetEntry& entry) {
                          return (entry.id == list.getCurrent() ? "*" : "") + entry.name +
                                 (entry.isMissing ? "?" : "") + (entry.note.empty() ? "" : "(" + entry.note + ")");
                      }) +
               (notices.empty() ? "" : ": " + notices);
    }
    /// Entries by their rows; of `add`, programs.
    std::string done(SetKind kind, std::vector<int> rows, int before = -1, const std::string& note = "")
    {
        const auto idOf = [this](int row) { return list.getEntries()[static_cast<std::size_t>(row)].id; };
        if (kind != SetKind::add)
            for (int& row : rows) row = idOf(row);
        commands().postEditSetList({kind, "e", rows, before < 0 ? 0 : idOf(before), note});
        return shown();
    }
    std::string bankDone(const BankEdit& edit)
    {
        commands().postEditBank(edit);
        return shown();
    }
    int go(SetStep kind, int number = 0)
    {
        changeProgram(kind, number);
        return orv->getProgram().number;
    }
    std::string reloaded()
    {
        load(makeBank(1));
        load(makeBank(4));
        return shown();
    }

    SetList list;
};
}  // namespace

TEST(SetList, NextAndPreviousFollowItWhileItIsOn)
{
    SetStage stage;
    EXPECT_EQ(stage.shown(), "P2(capo 2) *P0 X? P3 P0");
    EXPECT_EQ(stage.go(SetStep::up), 3) << "the missing one is skipped";
    EXPECT_EQ(stage.go(SetStep::up), 0);
    EXPECT_EQ(stage.go(SetStep::up), 0) << "the end";
    EXPECT_EQ(stage.shown(), "P2(capo 2) P0 X? P3 *P0");
    EXPECT_EQ(stage.go(SetStep::specific, 1), 1) << "not in the list";
    EXPECT_EQ(stage.go(SetStep::down), 0) << "where the list was left";
    EXPECT_EQ(stage.go(SetStep::down), 3);
    EXPECT_EQ(stage.go(SetStep::specific, 2), 2);
    EXPECT_EQ(stage.shown(), "*P2(capo 2) P0 X? P3 P0");
    EXPECT_EQ(stage.go(SetStep::down), 2) << "the beginning";
    EXPECT_EQ(stage.go(SetStep::up), 0);

    stage.commands().postEnableSetList(false);
    EXPECT_EQ(stage.go(SetStep::up), 1) << "as in the bank";
    stage.commands().postGoToSetEntry(stage.list.getEntries()[3].id);
    stage.commands().postGoToSetEntry(stage.list.getEntries()[2].id);
    EXPECT_EQ(stage.current(), "P3 3 103 4");
    EXPECT_EQ(stage.reloaded(), "P2(capo 2) P0 X? *P3 P0") << "the position is kept";
    EXPECT_FALSE(stage.list.isOn());

    stage.commands().postEnableSetList(true);
    stage.commands().postKeepSetPosition(false);
    stage.changeProgram(SetStep::specific, 2);
    EXPECT_EQ(stage.reloaded(), "*P2(capo 2) P0 X? P3 P0") << "as far as the program is in it";
}

TEST(SetList, IsEditedWithUndoAndLosesNothing)
{
    SetStage stage;
    EXPECT_EQ(stage.done(SetKind::add, {1, 9}, 0, "two\nlines"), "P1(two lines) P2(capo 2) *P0 X? P3 P0");
    EXPECT_EQ(stage.done(SetKind::move, {1}, 2), "P1(two lines) P2(capo 2) *P0 X? P3 P0: failed") << "where it is";
    EXPECT_EQ(stage.done(SetKind::move, {2, 3}), "P1(two lines) P2(capo 2) P3 P0 *P0 X?");
    EXPECT_EQ(stage.done(SetKind::note, {5}, -1, "wait"), "P1(two lines) P2(capo 2) P3 P0 *P0 X?(wait)");
    EXPECT_EQ(stage.done(SetKind::remove, {4, 1}), "P1(two lines) P3 *P0 X?(wait)");
    EXPECT_EQ(stage.done(SetKind::note, {0}, -1, "\xff"), "P1(two lines) P3 *P0 X?(wait): failed");
    EXPECT_EQ(stage.reloaded(), "P1(two lines) P3 *P0 X?(wait)");
    EXPECT_EQ(stage.done(SetKind::remove, {0, 1, 2, 3}), "");
    stage.commands().postUndoSetList();
    EXPECT_EQ(stage.shown(), "P1(two lines) P3 *P0 X?(wait)");
    stage.commands().postRedoSetList();
    stage.commands().postRedoSetList();
    EXPECT_EQ(stage.shown(), "");
    stage.commands().postUndoSetList();
    EXPECT_EQ(stage.reloaded(), "P1(two lines) P3 *P0 X?(wait)");
}

TEST(SetList, FollowsTheProgramsOfTheBank)
{
    SetStage stage;
    stage.done(SetKind::remove, {4});
    EXPECT_EQ(stage.bankDone({.kind = BankEdit::Kind::move, .name = "m", .programs = {2}, .to = 0}),
              "P2(capo 2) *P0 X? P3");
    EXPECT_EQ(stage.bankDone({.kind = BankEdit::Kind::rename, .name = "r", .programs = {0}, .programName = "New"}),
              "New(capo 2) *P0 X? P3");
    EXPECT_EQ(stage.bankDone({.kind = BankEdit::Kind::remove, .name = "d", .programs = {0, 3}}),
              "New?(capo 2) *P0 X? P3?");
    stage.commands().postUndoSetList();
    EXPECT_EQ(stage.shown(), "New?(capo 2) *P0 X? P3? P0") << "older versions of the list follow, too";
    stage.commands().postUndoBank("");
    EXPECT_EQ(stage.shown(), "New(capo 2) *P0 X? P3 P0");
    stage.rename("Mine");
    stage.commands().postSaveToCurrentBank(stage.orv->getProgram().number);
    EXPECT_EQ(stage.shown(), "New(capo 2) *Mine X? P3 Mine");

    const std::string bank = stage.path("a.bnk");
    stage.folder.write("b.bnk", "<Bank><Program name='x'/></Bank>");
    stage.load(stage.path("b.bnk"));
    EXPECT_EQ(stage.shown(), "");
    EXPECT_EQ(stage.bankDone(
                  {.kind = BankEdit::Kind::rename, .name = "r", .bank = bank, .programs = {0}, .programName = "Other"}),
              "");
    stage.load(bank);
    EXPECT_EQ(stage.shown(), "Other(capo 2) *Mine X? P3 Mine");
}

TEST(SetList, IsNotWrittenOverWhatIsNotItsOwn)
{
    SetStage stage;
    stage.folder.write("a.set", SetStage::setFile("on='true' position='3'"));
    EXPECT_EQ(stage.done(SetKind::remove, {0}), "P2(capo 2) P0 X? *P3 P0: notice 1") << "of another program";
    stage.folder.write("a.set", "<SetList><Ent");
    EXPECT_EQ(stage.reloaded(), "");
    EXPECT_TRUE(stage.list.isBroken());
    EXPECT_EQ(stage.done(SetKind::add, {0}), ": failed");
    stage.commands().postEnableSetList(true);
    EXPECT_EQ(stage.go(SetStep::up), 1);
    EXPECT_EQ(stage.folder.read("a.set"), "<SetList><Ent");
}

TEST(SetList, ProgramChangesOfAnInputLoadPrograms)
{
    SetStage stage;
    std::string bank = "<Bank>";
    for (int number = 0; number < 300; ++number)
        bank += "<Program name='" + std::to_string(number) + "'><Layers><Layer/></Layers></Program>";
    stage.folder.write("many.bnk", bank + "</Bank>");
    stage.load(stage.path("many.bnk"));
    stage.commands().postSetting(SETTING<Settings::PROGRAM_CHANGE_INPUT>(1));
    stage.commands().postSetting(SETTING<Settings::PROGRAM_CHANGE_CHANNEL>(3));
    const auto arrive = [&stage](const MidiEngine::OrvMidiMessage& event, bool live) {
        if (!live || !stage.orv->playMidiInputEvent(event)) stage.arrive(event);
        stage.playSlices(3);
    };
    const auto change = [](int program) { return event(MessageType::programChange, program); };
    for (const bool live : {false, true}) {
        stage.played();
        arrive(controller(32, 2).input(1).channel(3), live);
        arrive(change(33).input(1).channel(3), live);
        EXPECT_EQ(stage.orv->getProgram().number, 289);
        arrive(change(127).input(1).channel(3), live);
        EXPECT_EQ(stage.shown(), ": notice 0") << "there is no program 383";
        arrive(controller(32, 0).input(1).channel(3), live);
        arrive(change(5).input(1).channel(3), live);
        EXPECT_EQ(stage.orv->getProgram().number, 5);
        EXPECT_EQ(stage.takePlayed(), "");
        arrive(change(6).input(1), live);
        arrive(change(6).input(0).channel(3), live);
        EXPECT_EQ(stage.orv->getProgram().number, 5);
        EXPECT_EQ(stage.played(), "Program Change 6 0, Program Change 6 0") << "they are played";
    }
}
