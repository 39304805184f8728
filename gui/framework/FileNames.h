#pragma once

#include <QString>
#include <string>

namespace Gui
{
/// Why a name, which is not blank, cannot be that of a file, as a sentence; empty if it can.
QString refuseFileName(const QString& name);

/// The name without the characters that a file name cannot have; `otherwise` if nothing is left.
QString asFileName(const QString& name, const QString& otherwise);

/// The name of a file as it is shown, without its folder.
QString shownFileName(const std::string& path);
}  // namespace Gui
