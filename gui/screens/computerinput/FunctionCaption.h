#pragma once

#include <QString>

#include "backend/model/Function.h"

namespace Backend
{
class ButtonConfiguration;
}

/// Functions in words.
namespace Gui::ComputerInput::FunctionCaption
{
/// A few letters that fit on a key: the note, or what is done with how much; empty for one that does nothing.
QString shortNameOf(const Backend::FunctionManagement::Function& function);

/// Its name and its parameters: "Midi Note On: zone 0, note C4, velocity 100".
QString describe(const Backend::FunctionManagement::Function& function);

/// What a key or a button shows: each thing that it does when it goes down, or else when it comes up, once.
QString captionOf(const Backend::ButtonConfiguration& button);

/// A line for each function.
QString describe(const Backend::ButtonConfiguration& button);

/// The number of the first note that it plays, -1 if it plays none.
int firstNoteOf(const Backend::ButtonConfiguration& button);
}  // namespace Gui::ComputerInput::FunctionCaption
