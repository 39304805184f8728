#include "backend/sections/computerinput/ButtonEvent.h"

namespace Backend
{
using FunctionManagement::Function;
using FunctionManagement::FunctionNoteSpan;

namespace
{
void run(const std::unique_ptr<Function>& function)
{
    if (function) function->execute();
}
}  // namespace

void runButton(const ButtonConfiguration& button, ButtonEvent event)
{
    const std::vector<ButtonFunction> entries = button.getEntries();
    for (const ButtonFunction& entry : entries) {
        if (event == ButtonEvent::up)
            run(entry.upFunction);
        else if (event == ButtonEvent::down || entry.keepSending)
            run(entry.downFunction);
        else if (!entry.downFunction && !entry.upFunction)
            break;
    }
}

void appendNoteSpans(const ButtonConfiguration& button, std::vector<FunctionNoteSpan>& spans)
{
    button.forEachFunction([&](const Function& function) {
        const FunctionNoteSpan span = function.getNoteSpan();
        if (span.zone != FunctionNoteSpan::NO_ZONE && span.isPlayed()) spans.push_back(span);
    });
}
}  // namespace Backend
