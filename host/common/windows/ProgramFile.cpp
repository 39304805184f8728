#include "host/common/ProgramFile.h"

#include <windows.h>

#include <string>

namespace Host
{
std::filesystem::path programFile()
{
    constexpr DWORD LONGEST_PATH = 32767;
    std::wstring path(LONGEST_PATH, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), LONGEST_PATH));
    return path;
}
}  // namespace Host
