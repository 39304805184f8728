#pragma once

#include <QString>

#include "backend/model/Function.h"
#include "backend/model/ZoneMap.h"

namespace Backend
{
class ButtonConfiguration;
}

/// Texts that describe functions.
namespace Gui::Forms::FunctionCaption
{
/// A few letters that fit on a key: the note, or the function and its value; empty for a function without effect.
QString shortNameOf(const Backend::FunctionManagement::Function& function);

/// The note that a note-on sounds in its zone; -1 for any other function.
int soundingNoteOf(const Backend::FunctionManagement::Function& function, const Backend::Zones::ZoneMap& zones);

/// The name of the function and its parameters, zones, layers, outputs and channels counted from 1:
/// "Midi Note On: zone 1, note C4, velocity 100".
QString describe(const Backend::FunctionManagement::Function& function);

/// The caption of a key or a button: its down functions, or else its up functions, each once, notes as they sound.
QString captionOf(const Backend::ButtonConfiguration& button, const Backend::Zones::ZoneMap& zones);

/// A line for each function.
QString describe(const Backend::ButtonConfiguration& button);

struct PlayedNote {
    int note = -1;  ///< as it sounds; -1 for none
    int zone = -1;  ///< from 0; -1 for none
};

/// The first note that it plays.
PlayedNote firstNoteOf(const Backend::ButtonConfiguration& button, const Backend::Zones::ZoneMap& zones);
}  // namespace Gui::Forms::FunctionCaption
