#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "backend/model/ButtonConfiguration.h"
#include "backend/model/FunctionNoteSpan.h"

namespace Backend
{
/// An event of a key or button. A held one repeats.
enum class ButtonEvent { down, repeat, up };

/// Counts how often the down functions of each held button were executed, by their index among its entries. A key is
/// one button with any modifiers. The backend thread.
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

/// Executes the functions of a button, entry by entry. A repeat executes the down functions that are marked to be sent
/// again, up to the first entry that is not and has no function. If such a down function is a note-on and the up
/// function a note-off, the up function is executed once for each time the down function was, so that every note-on
/// gets its note-off. A function may replace the configuration that contains it. The backend thread.
void runButton(const ButtonConfiguration& button, ButtonEvent event, DownRuns& downRuns, std::int32_t id);

/// Appends the notes that the functions of a button play in zones.
void appendNoteSpans(const ButtonConfiguration& button, std::vector<FunctionManagement::FunctionNoteSpan>& spans);
}  // namespace Backend
