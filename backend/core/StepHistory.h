#pragma once

#include <cstddef>
#include <utility>
#include <vector>

namespace Backend
{
/// Changes by the user that can be undone and done again. It executes nothing.
template <class Step>
class StepHistory
{
public:
    /// Adds a step after the present one; those that were undone are gone.
    void add(Step step)
    {
        steps.resize(position);
        steps.push_back(std::move(step));
        ++position;
    }
    enum class Way { undo, redo };
    /// The step to be undone, or to be done again; null if there is none. Valid until the history is changed.
    Step* find(Way way)
    {
        if (way == Way::undo) return position == 0 ? nullptr : &steps[position - 1];
        return position == steps.size() ? nullptr : &steps[position];
    }
    /// That step was executed.
    void count(Way way) { way == Way::undo ? --position : ++position; }
    /// Calls `visit` with each step, those that were undone included.
    template <class Visit>
    void forEach(Visit visit)
    {
        for (Step& step : steps) visit(step);
    }

private:
    std::vector<Step> steps;
    std::size_t position = 0;  // steps before it are executed
};
}  // namespace Backend
