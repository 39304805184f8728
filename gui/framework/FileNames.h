#pragma once

#include <QString>
#include <string>

namespace Gui
{
/// Why a name that is not blank cannot be a file's, a sentence; empty if it can.
QString refuseFileName(const QString& name);

/// The name as a file's, without what a file cannot be called; `otherwise` if nothing is left.
QString asFileName(const QString& name, const QString& otherwise);

/// The name of a file as one reads it, without its folder.
QString shownFileName(const std::string& path);
}  // namespace Gui
