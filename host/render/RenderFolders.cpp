#include "host/render/RenderFolders.h"

#include <random>
#include <string>
#include <system_error>

#include "api/OrvUtils.h"
#include "host/common/ApplicationName.h"
#include "host/common/InputError.h"
#include "host/common/Installer.h"
#include "host/render/SettingChoice.h"
#include "platform/Folders.h"
#include "platform/Path.h"
#include "platform/SettingsStore.h"

namespace Host
{
namespace fs = std::filesystem;
using Backend::OrvUtils;

namespace
{
void throwIf(const fs::path& path, const std::error_code& error)
{
    if (error) throw InputError(textOf(path) + ": " + error.message());
}

fs::path createdFolder(const fs::path& wanted)
{
    std::error_code error;
    fs::create_directories(wanted, error);
    throwIf(wanted, error);
    const fs::path folder = fs::absolute(wanted, error);
    throwIf(wanted, error);
    return folder;
}

void writeSettings(const std::vector<std::string>& choices)
{
    SettingsStore store(OrvUtils::getRegistryKey(APPLICATION_NAME));
    store.setNumber("DefaultMidiOutput", 0);
    for (const std::string& choice : choices) storeChoice(store, choice);
    if (!store.save()) throw InputError("the settings of this rendering cannot be written to the temporary folder");
}
}  // namespace

RenderFolders::Temporary::Temporary()
{
    std::error_code error;
    const fs::path parent = fs::temp_directory_path(error);
    throwIf(parent, error);
    std::random_device random;
    do {
        path = parent / ("orvane-render-" + std::to_string(random()));
    } while (!fs::create_directory(path, error) && !error);  // the name is taken
    throwIf(path, error);
}

RenderFolders::Temporary::~Temporary()
{
    std::error_code none;
    fs::remove_all(path, none);
}

RenderFolders::RenderFolders(const std::optional<fs::path>& data, const std::vector<std::string>& choices)
{
    const std::string chosen = data ? textOf(createdFolder(*data)) : "";
    Folders::setSettings(textOf(folder.path / "settings"));
    Folders::setLocalApplicationData(textOf(folder.path / "data"));
    OrvUtils::setOrvAppDataDir(chosen);
    writeSettings(choices);
    installIfNeeded();
}

RenderFolders::~RenderFolders()
{
    Folders::setSettings("");
    Folders::setLocalApplicationData("");
    OrvUtils::setOrvAppDataDir("");
}
}  // namespace Host
