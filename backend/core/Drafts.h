#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <utility>

#include "backend/sections/EditHistory.h"

namespace Backend
{
/// A program that was left: its history and, if it was edited, its text.
struct Draft {
    std::string text;
    EditHistory history;
};

/// The drafts of the programs that are not the current one, by bank and number.
class Drafts
{
public:
    /// Replaces the draft of a program. One without edits removes it.
    void keep(const std::string& bank, int number, Draft draft)
    {
        forget(bank, number);
        if (!draft.text.empty() || !draft.history.isEmpty()) drafts.emplace(Place(bank, number), std::move(draft));
    }
    /// Removes the draft of a program and returns it; an empty one if there is none.
    Draft take(const std::string& bank, int number)
    {
        auto node = drafts.extract({bank, number});
        return node ? std::move(node.mapped()) : Draft{};
    }
    void forget(const std::string& bank, int number) { drafts.erase({bank, number}); }
    /// Removes the drafts of a bank and returns them by their numbers.
    std::map<int, Draft> takeAll(const std::string& bank)
    {
        std::map<int, Draft> taken;
        for (auto row = drafts.lower_bound({bank, 0}); row != drafts.end() && row->first.first == bank;) {
            taken.emplace(row->first.second, std::move(row->second));
            row = drafts.erase(row);
        }
        return taken;
    }
    /// The text of an edited program; empty if it is not edited.
    std::string textOf(const std::string& bank, int number) const
    {
        const auto found = drafts.find({bank, number});
        return found == drafts.end() ? std::string() : found->second.text;
    }
    /// The drafts of the programs of a bank from that number on.
    void forgetFrom(const std::string& bank, int number)
    {
        std::erase_if(drafts, [&](const auto& row) { return row.first.first == bank && row.first.second >= number; });
    }

    /// How many programs are edited.
    std::size_t count() const
    {
        std::size_t edited = 0;
        for (const auto& [place, draft] : drafts) edited += draft.text.empty() ? 0 : 1;
        return edited;
    }

private:
    using Place = std::pair<std::string, int>;

    std::map<Place, Draft> drafts;
};
}  // namespace Backend
