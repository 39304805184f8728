#pragma once

#include <string>
#include <vector>

namespace Gui
{
class OrvGuiIF;
}

/// The files that were loaded last, kept in the settings. The GUI thread.
namespace Gui::Files
{
/// At most eight, the newest first; only those that are there.
std::vector<std::string> getRecentFiles(const OrvGuiIF& gui);
/// Puts a file first.
void addRecentFile(OrvGuiIF& gui, const std::string& path);
}  // namespace Gui::Files
