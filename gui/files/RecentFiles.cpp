#include "gui/files/RecentFiles.h"

#include <QFileInfo>
#include <QStringList>

#include "api/OrvGuiIF.h"
#include "api/OrvMessageManager.h"
#include "backend/files/RegistrySettings.h"
#include "backend/messages/SettingMessages.h"

namespace Gui::Files
{
namespace
{
namespace Settings = Backend::Settings;

constexpr QChar SEPARATOR('\n');
constexpr int MOST = 8;
constexpr int LONGEST = 900;  // bytes of all paths: the settings have no room for many more

QStringList getPaths(const OrvGuiIF& gui)
{
    return QString::fromStdString(gui.getRegistrySettings().get<Settings::RECENT_FILES>())
        .split(SEPARATOR, Qt::SkipEmptyParts);
}
}  // namespace

std::vector<std::string> getRecentFiles(const OrvGuiIF& gui)
{
    std::vector<std::string> files;
    for (const QString& path : getPaths(gui))
        if (QFileInfo(path).isFile()) files.push_back(path.toStdString());
    return files;
}

void addRecentFile(OrvGuiIF& gui, const std::string& path)
{
    const QString added = QString::fromStdString(path);
    QStringList paths = getPaths(gui);
    if (added.isEmpty() || added.contains(SEPARATOR) || paths.value(0) == added) return;
    paths.removeAll(added);
    paths.prepend(added);
    const auto text = [&paths] { return paths.join(SEPARATOR).toStdString(); };
    while (!paths.isEmpty() && (paths.size() > MOST || text().size() > LONGEST)) paths.removeLast();
    gui.getOrvMessageManager().postSetting(Backend::SETTING<Settings::RECENT_FILES>(text()));
}
}  // namespace Gui::Files
