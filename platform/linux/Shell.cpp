#include "platform/Shell.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <string>
#include <string_view>

namespace
{
/// The program's path in PATH. The forked child of a process with threads must not search it.
std::string findProgram(const std::string& name)
{
    const char* variable = std::getenv("PATH");
    std::string_view rest = variable != nullptr ? variable : "/usr/local/bin:/usr/bin:/bin";
    while (!rest.empty()) {
        const auto end = rest.find(':');
        const std::string path = std::string(rest.substr(0, end)) + "/" + name;
        if (path.front() == '/' && ::access(path.c_str(), X_OK) == 0) return path;
        rest = end == std::string_view::npos ? std::string_view{} : rest.substr(end + 1);
    }
    return "";
}

/// In the child: forks again, so that this process need not wait for the program, and executes it in a new session.
[[noreturn]] void becomeDetached(char* const* arguments)
{
    ::setsid();
    if (::fork() != 0) ::_exit(0);
    sigset_t none;
    ::sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
    const int nothing = ::open("/dev/null", O_RDWR);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) ::dup2(nothing, stream);
    ::execv(arguments[0], arguments);
    ::_exit(127);
}
}  // namespace

std::string openDocument(const std::string& path)
{
    std::string program = findProgram("xdg-open");
    if (program.empty()) return "xdg-open is not installed";
    std::string document = path;
    char* const arguments[] = {program.data(), document.data(), nullptr};
    const pid_t child = ::fork();
    if (child == 0) becomeDetached(arguments);
    if (child < 0) return "no process can be started";
    ::waitpid(child, nullptr, 0);
    return "";
}
