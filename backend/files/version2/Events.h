#pragma once

#include <string>
#include <string_view>

#include "backend/bindings/functions/MidiFunction.h"
#include "backend/values/MidiMessage.h"

namespace Backend::Version2
{
/// The largest value that an event can carry.
int highestValue(const MidiEngine::MidiMessage& event);

/// The element of a function that plays an event with that value, as one line.
std::string functionText(const MidiEngine::MidiMessage& event, int value, FunctionManagement::MidiParameters place);

/// The type name of the translation into an event.
std::string_view translationType(const MidiEngine::MidiMessage& event);

/// Indents each line of `text` by that many TABs.
std::string indented(std::string_view text, int tabs);
}  // namespace Backend::Version2
