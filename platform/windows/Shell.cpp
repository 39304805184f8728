#include "platform/Shell.h"

#include <windows.h>
// After windows.h
#include <shellapi.h>

#include "platform/windows/Wide.h"

OpenedDocument::OpenedDocument(const std::string& path)
{
    const HINSTANCE opened = ShellExecuteW(nullptr, L"open", widen(path).c_str(), nullptr, nullptr, SW_SHOWNORMAL);
    const auto code = reinterpret_cast<std::intptr_t>(opened);
    constexpr std::intptr_t LAST_ERROR = 32;
    if (code > LAST_ERROR) return;
    problem = code == SE_ERR_NOASSOC ? "Windows knows no program for it" : describe(static_cast<unsigned long>(code));
}

std::string OpenedDocument::getProblem() { return problem; }
