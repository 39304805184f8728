#include "host/window/FindDesktop.h"

#include <QLibraryInfo>
#include <QString>
#include <cstdlib>
#include <filesystem>

#include "host/window/linux/LocalSocket.h"
#include "host/window/linux/XServer.h"

namespace Host
{
namespace fs = std::filesystem;

namespace
{
std::string variable(const char* name)
{
    const char* value = std::getenv(name);
    return value == nullptr ? "" : value;
}

bool compositorAnswers()
{
    const fs::path socket = variable("WAYLAND_DISPLAY");
    return LocalSocket::connectTo(fs::path(variable("XDG_RUNTIME_DIR")) / socket)
        .isOwnUsers();  // an absolute path replaces the folder
}

/// Whether Qt's plug-in for Wayland is installed; it is a package of its own.
bool isWaylandInstalled()
{
    std::error_code none;
    const fs::path plugins = QLibraryInfo::path(QLibraryInfo::PluginsPath).toStdString();
    for (const auto& file : fs::directory_iterator(plugins / "platforms", none))
        if (file.path().filename().string().starts_with("libqwayland")) return true;
    return false;
}

Desktop findX()
{
    const std::string name = variable("DISPLAY");
    if (name.empty()) return {{}, "there is no display"};
    if (!xServerAnswers()) return {{}, "the display " + name + " does not answer"};
    return {"xcb", {}};
}

Desktop findWayland()
{
    const std::string name = variable("WAYLAND_DISPLAY");
    if (name.empty()) return {{}, "there is no display"};
    if (!compositorAnswers()) return {{}, "the display " + name + " does not answer"};
    if (!isWaylandInstalled()) return {{}, "the package qt6-wayland is missing, and the display is no X display"};
    return {"wayland", {}};
}
}  // namespace

Desktop findDesktop()
{
    const std::string wanted = variable("QT_QPA_PLATFORM");
    if (wanted.starts_with("wayland")) return findWayland();
    if (!wanted.empty() && !wanted.starts_with("xcb")) return {wanted, {}};
    Desktop desktop = findX();
    if (!desktop.platform.empty() || !wanted.empty() || variable("WAYLAND_DISPLAY").empty()) return desktop;
    return findWayland();
}
}  // namespace Host
