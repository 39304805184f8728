#pragma once

#include <string>

#include "platform/SettingsStore.h"

namespace Host
{
/// Stores a setting that was given as NAME=VALUE, by its stored name: text as it stands, on and off as 1 and 0, a
/// number of 32 bits, a rectangle as "left,top,right,bottom". Throws InputError for a name that no setting has and for
/// a value that is none.
void storeChoice(SettingsStore& store, const std::string& choice);
}  // namespace Host
