#include "gui/forms/Selection.h"

#include <gtest/gtest.h>

using Gui::Forms::Selection;

namespace
{
constexpr auto SHIFT = Qt::ShiftModifier;
constexpr auto CONTROL = Qt::ControlModifier;

/// The selected records, the current one in brackets.
std::string shown(const Selection& selection)
{
    std::string text;
    for (const auto id : selection.getRecords()) {
        if (!selection.isSelected(id) && !selection.isCurrent(id)) continue;
        const std::string number = (selection.isSelected(id) ? "" : "-") + std::to_string(id);
        text += selection.isCurrent(id) ? "[" + number + "]" : number;
    }
    return text;
}
}  // namespace

TEST(Selection, FollowsTheMouseTheKeysAndTheRecords)
{
    Selection selection(Selection::Ids::indices);
    int changes = 0;
    selection.onChange = [&] { ++changes; };
    selection.setRecords({0, 1, 2, 3, 4, 5});
    EXPECT_EQ(changes, 0);
    using Keys = Qt::KeyboardModifiers;
    const auto click = [&](int id, Keys held = {}) { return [&, id, held] { selection.click(id, held); }; };
    const auto key = [&](int code, Keys held = {}) { return [&, code, held] { selection.useKey(code, held); }; };
    const struct {
        std::function<void()> step;
        const char* expected;
    } STEPS[] = {
        {key(Qt::Key_Down), "[0]"},
        {click(2), "[2]"},
        {click(4, SHIFT), "23[4]"},
        {click(1, SHIFT), "[1]2"},
        {click(5, CONTROL), "12[5]"},
        {click(2, CONTROL), "1[-2]5"},
        {click(3, SHIFT | CONTROL), "12[3]5"},
        {key(Qt::Key_Up), "[2]"},
        {key(Qt::Key_Down, SHIFT), "2[3]"},
        {key(Qt::Key_End, SHIFT), "234[5]"},
        {key(Qt::Key_Down), "[5]"},
        {key(Qt::Key_Home, CONTROL), "[-0]5"},
        {key(Qt::Key_Space, CONTROL), "[0]5"},
        {[&] { selection.clickForMenu(5); }, "0[5]"},
        {[&] { selection.clickForMenu(4); }, "[4]"},
        {key(Qt::Key_A, CONTROL), "0123[4]5"},
        {click(9), "0123[4]5"},
        {[&] {
             selection.select({1, 3, 9});
         },
         "1[3]"},
        {[&] { selection.added(2); }, "1[4]"},
        {[&] { selection.removed(0); }, "0[3]"},
        {[&] { selection.removed(3); }, "0[-3]"},
        {[&] {
             selection.setRecords({0, 1, 2});
         },
         "0[-2]"},
        {[&] { selection.setRecords({}); }, ""},
        {key(Qt::Key_Up), ""},
    };
    for (const auto& [step, expected] : STEPS) {
        step();
        EXPECT_EQ(shown(selection), expected);
    }
    EXPECT_EQ(changes, 22) << "two steps changed nothing";
}
