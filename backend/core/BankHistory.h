#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "backend/core/Drafts.h"
#include "backend/files/BankFile.h"

namespace Backend
{
/// A change of a bank's programs that can be undone or, after that, done again.
struct BankStep {
    std::string name;
    Arrangement order{};                          ///< what has to be arranged for that
    std::size_t programs = 0;                     ///< how many the bank has before it
    std::vector<std::pair<int, Draft>> drafts{};  ///< of programs that come back then, by their numbers
};

/// The changes of a bank's programs by the user since it was loaded. It executes nothing.
class BankHistory
{
public:
    /// Adds a step after the present one; those that were undone are gone.
    void add(BankStep step)
    {
        steps.resize(position);
        steps.push_back(std::move(step));
        ++position;
    }
    enum class Way { undo, redo };
    /// The step to be undone, or to be done again; null if there is none. Valid until the history is changed.
    BankStep* find(Way way)
    {
        if (way == Way::undo) return position == 0 ? nullptr : &steps[position - 1];
        return position == steps.size() ? nullptr : &steps[position];
    }
    /// That step was executed.
    void count(Way way) { way == Way::undo ? --position : ++position; }

private:
    std::vector<BankStep> steps;
    std::size_t position = 0;  // steps before it are executed
};
}  // namespace Backend
