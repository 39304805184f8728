#pragma once

#include <vector>

#include "backend/model/ButtonConfiguration.h"
#include "backend/model/FunctionNoteSpan.h"

namespace Backend
{
/// What happens to a key or a button. It goes on going down while it is held.
enum class ButtonEvent { down, repeat, up };

/// Runs what a button does, entry by entry. A repeat runs the down functions that are to be sent again, and ends at an
/// entry that is not and does nothing. A function may replace the configuration it stands in. The backend thread.
void runButton(const ButtonConfiguration& button, ButtonEvent event);

/// Appends what each function of a button plays in a zone.
void appendNoteSpans(const ButtonConfiguration& button, std::vector<FunctionManagement::FunctionNoteSpan>& spans);
}  // namespace Backend
