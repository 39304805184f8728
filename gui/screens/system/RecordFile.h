#pragma once

#include <string>

#include "backend/recorder/RetroRecordManager.h"

/// Where the record of what was played goes, and what to say of it.
namespace Gui::System::RecordFile
{
/// A file stem that names the moment, in the user's music folder, which is made where there is none; in the home folder
/// where it cannot be. UTF-8.
std::string stem();

/// A line for each file that was written and for each that could not be, or one that says that there is none.
std::string describe(const Backend::RetroRecord::SaveReport& report);
}  // namespace Gui::System::RecordFile
