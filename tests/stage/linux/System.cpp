#include "tests/stage/System.h"

#include <sys/stat.h>

#include <cstdlib>

void System::setVariable(const std::string& name, const std::string& value)
{
    value.empty() ? ::unsetenv(name.c_str()) : ::setenv(name.c_str(), value.c_str(), 1);
}

void System::makeSpecialFile(const std::filesystem::path& path) { ::mkfifo(path.c_str(), 0600); }

std::vector<std::string> System::devices() { return {"/dev/zero", "/dev/null"}; }
