#include "host/terminal/TerminalWidth.h"

#include <sys/ioctl.h>
#include <unistd.h>

namespace Host
{
namespace
{
constexpr std::size_t USUAL = 80;
}

std::optional<std::size_t> terminalWidth()
{
    if (isatty(STDOUT_FILENO) != 1) return std::nullopt;
    winsize size{};
    const bool known = ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return known ? size.ws_col : USUAL;
}
}  // namespace Host
