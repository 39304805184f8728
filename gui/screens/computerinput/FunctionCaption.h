#pragma once

#include <QString>

#include "backend/model/Function.h"

namespace Backend
{
class ButtonConfiguration;
}

/// Texts that describe functions.
namespace Gui::ComputerInput::FunctionCaption
{
/// A few letters that fit on a key: the note, or the function and its value; empty for a function without effect.
QString shortNameOf(const Backend::FunctionManagement::Function& function);

/// The name of the function and its parameters: "Midi Note On: zone 0, note C4, velocity 100".
QString describe(const Backend::FunctionManagement::Function& function);

/// The caption of a key or a button: its down functions, or else its up functions, each once.
QString captionOf(const Backend::ButtonConfiguration& button);

/// A line for each function.
QString describe(const Backend::ButtonConfiguration& button);

/// The number of the first note that it plays; -1 for none.
int firstNoteOf(const Backend::ButtonConfiguration& button);
}  // namespace Gui::ComputerInput::FunctionCaption
