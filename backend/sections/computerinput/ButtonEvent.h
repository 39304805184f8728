#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "backend/model/ButtonConfiguration.h"
#include "backend/model/FunctionNoteSpan.h"

namespace Backend
{
/// What happens to a key or a button. It repeats while it is held.
enum class ButtonEvent { down, repeat, up };

/// How often the down functions of each button that is down have run, by their place among its entries. A key is one
/// button whatever its modifiers. The backend thread.
class DownRuns
{
public:
    DownRuns() { runs.reserve(64); }

    void add(std::int32_t button, std::size_t place);
    int count(std::int32_t button, std::size_t place) const;
    void forget(std::int32_t button);

private:
    struct Run {
        std::int32_t button;
        std::size_t place;
        int count;
    };

    std::vector<Run> runs;
};

/// Executes what a button does, entry by entry. A repeat executes the down functions that are to be sent again, and
/// ends at an entry that is not and does nothing. Where such a down function is a note on and the up function a note
/// off, the up function is executed once for each down function that ran at its place, so that every note on gets its
/// note off. A function may replace the configuration it stands in. The backend thread.
void runButton(const ButtonConfiguration& button, ButtonEvent event, DownRuns& downRuns, std::int32_t id);

/// Appends what each function of a button plays in a zone.
void appendNoteSpans(const ButtonConfiguration& button, std::vector<FunctionManagement::FunctionNoteSpan>& spans);
}  // namespace Backend
