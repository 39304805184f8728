#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

/// What tests ask of the system, and each system does in its way.
namespace System
{
/// Sets a variable of the environment; an empty text removes it.
void setVariable(const std::string& name, const std::string& value);

/// Makes something that is no file under the name of one: a pipe, or a folder where a folder cannot have pipes.
void makeSpecialFile(const std::filesystem::path& path);

/// Before a `QApplication` that has no display: where it finds fonts.
void offerFonts();

/// Paths of devices that can be opened.
std::vector<std::string> devices();
}  // namespace System
