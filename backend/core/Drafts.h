#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "backend/sections/RecoveryState.h"

namespace Backend
{
/// The drafts of the programs that are not the current one, by bank and number.
class Drafts
{
public:
    /// Replaces the draft of a program. One without edits removes it.
    void keep(const std::string& bank, int number, Draft draft)
    {
        forget(bank, number);
        if (!draft.text.empty() || !draft.history.isEmpty())
            drafts.emplace(Place(bank, number), std::make_shared<const Draft>(std::move(draft)));
    }
    /// Removes the draft of a program and returns it; an empty one if there is none.
    Draft take(const std::string& bank, int number)
    {
        auto node = drafts.extract({bank, number});
        return node ? *node.mapped() : Draft{};
    }
    void forget(const std::string& bank, int number) { drafts.erase({bank, number}); }
    /// Removes the drafts of a bank and returns them by their numbers.
    std::map<int, Draft> takeAll(const std::string& bank)
    {
        std::map<int, Draft> taken;
        for (auto row = drafts.lower_bound({bank, 0}); row != drafts.end() && row->first.first == bank;) {
            taken.emplace(row->first.second, *row->second);
            row = drafts.erase(row);
        }
        return taken;
    }
    /// The text of an edited program; empty if it is not edited.
    std::string textOf(const std::string& bank, int number) const
    {
        const auto found = drafts.find({bank, number});
        return found == drafts.end() ? std::string() : found->second->text;
    }
    /// The drafts of the programs of a bank from that number on.
    void forgetFrom(const std::string& bank, int number)
    {
        std::erase_if(drafts, [&](const auto& row) { return row.first.first == bank && row.first.second >= number; });
    }

    void forgetAll() { drafts.clear(); }
    /// Calls `visit` with bank, number and draft of each; the draft is shared.
    template <class Visit>
    void forEach(Visit visit) const
    {
        for (const auto& [place, draft] : drafts) visit(place.first, place.second, draft);
    }

    /// How many programs are edited.
    std::size_t count() const
    {
        std::size_t edited = 0;
        for (const auto& [place, draft] : drafts) edited += draft->text.empty() ? 0 : 1;
        return edited;
    }

private:
    using Place = std::pair<std::string, int>;

    std::map<Place, std::shared_ptr<const Draft>> drafts;  // shared with the recovery file's thread
};
}  // namespace Backend
