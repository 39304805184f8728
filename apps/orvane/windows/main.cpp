#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <iostream>

#include "apps/orvane/Program.h"
#include "platform/Path.h"

namespace
{
/// The console's own code page, UTF-8 while the program runs.
class Utf8Console
{
public:
    Utf8Console() : before(GetConsoleOutputCP())
    {
        if (before != 0) SetConsoleOutputCP(CP_UTF8);
    }
    ~Utf8Console()
    {
        if (before != 0) SetConsoleOutputCP(before);
    }
    Utf8Console(const Utf8Console&) = delete;
    Utf8Console& operator=(const Utf8Console&) = delete;

private:
    const UINT before;  // 0 without a console
};
}  // namespace

int wmain(int count, wchar_t** texts)
{
    for (const int stream : {0, 1, 2}) _setmode(stream, _O_BINARY);  // lines end in one line feed
    const Utf8Console console;
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i) arguments.push_back(textOf(texts[i]));
    return runProgram(std::move(arguments));
}

void showError(const std::string& line)
{
    if (GetStdHandle(STD_ERROR_HANDLE) != nullptr)
        std::cerr << line + "\n";
    else
        MessageBoxW(nullptr, pathOf(line).c_str(), L"Orvane 3", MB_ICONERROR);
}
