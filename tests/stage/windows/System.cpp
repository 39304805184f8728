#include "tests/stage/System.h"

#include <cstdlib>

void System::setVariable(const std::string& name, const std::string& value) { _putenv_s(name.c_str(), value.c_str()); }

void System::makeSpecialFile(const std::filesystem::path& path) { std::filesystem::create_directory(path); }

void System::offerFonts() { setVariable("QT_QPA_FONTDIR", "C:/windows/fonts"); }

std::vector<std::string> System::devices() { return {"NUL", "CON"}; }
