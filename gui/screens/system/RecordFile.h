#pragma once

#include <string>

#include "backend/recorder/RetroRecordManager.h"

/// The file name of a saved record, and the text that reports the result.
namespace Gui::System::RecordFile
{
/// A path with date and time as its name, without extension, in the user's music folder, which is created if it is
/// missing; in the home folder if that fails. UTF-8.
std::string stem();

/// A line for each file that was written or failed, or one that says that nothing was recorded.
std::string describe(const Backend::RetroRecord::SaveReport& report);
}  // namespace Gui::System::RecordFile
