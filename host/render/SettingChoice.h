#pragma once

#include <string>

#include "platform/SettingsStore.h"

namespace Host
{
/// Stores a setting that is given as NAME=VALUE, by its stored name. The value is a text, 1 or 0 for on or off, a
/// number of 32 bits, or a rectangle "left,top,right,bottom". Throws InputError if no setting has the name, or the
/// value is not of its kind.
void storeChoice(SettingsStore& store, const std::string& choice);
}  // namespace Host
