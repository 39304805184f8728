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

/// In the child: forks again, so that this process need not wait for the program, and executes it in a new session,
/// with `output` as its standard output.
[[noreturn]] void becomeDetached(char* const* arguments, int output)
{
    ::setsid();
    if (::fork() != 0) ::_exit(0);
    sigset_t none;
    ::sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
    const int nothing = ::open("/dev/null", O_RDWR);
    ::dup2(nothing, STDIN_FILENO);
    ::dup2(output, STDOUT_FILENO);
    ::dup2(nothing, STDERR_FILENO);
    ::execv(arguments[0], arguments);
    ::_exit(127);
}
}  // namespace

OpenedDocument::OpenedDocument(const std::string& path)
{
    std::string program = findProgram("xdg-open");
    if (program.empty()) {
        problem = "xdg-open is not installed";
        return;
    }
    std::string shell = "/bin/sh";
    std::string option = "-c";
    std::string script = R"("$0" "$1" >/dev/null; printf %s $?)";
    std::string document = path;
    char* const arguments[] = {shell.data(), option.data(), script.data(), program.data(), document.data(), nullptr};
    int streams[2];
    const bool hasStreams = ::pipe2(streams, O_CLOEXEC | O_NONBLOCK) == 0;
    const pid_t child = hasStreams ? ::fork() : -1;
    if (child == 0) becomeDetached(arguments, streams[1]);
    if (hasStreams) {
        ::close(streams[1]);
        result = {new int(streams[0]), [](const int* stream) {
                      ::close(*stream);
                      delete stream;
                  }};
    }
    if (child < 0)
        problem = "no process can be started";
    else
        ::waitpid(child, nullptr, 0);
}

std::string OpenedDocument::getProblem()
{
    char status = '0';
    if (problem.empty() && ::read(*result, &status, 1) == 1 && status != '0')
        problem = "xdg-open finds no program for it";
    return problem;
}
