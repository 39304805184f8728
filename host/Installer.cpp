#include "host/Installer.h"

#include <system_error>

#include "backend/persistence/OrvUtils.h"
#include "platform/DbgStream.h"
#include "platform/Path.h"

namespace Host
{
namespace fs = std::filesystem;
using Backend::OrvUtils;
using WindowsLib::DbgStream;

namespace
{
bool isFolder(const fs::path& path)
{
    std::error_code none;
    return fs::is_directory(path, none);
}
}  // namespace

fs::path findContent(const fs::path& program)
{
    for (const fs::path& content : {program.parent_path().parent_path() / "share/orvane", fs::path(ORVANE_CONTENT)})
        if (isFolder(content / "Default")) return content;
    return {};
}

void installIfNeeded()
{
    const std::string installed = OrvUtils::getOrvProgDir();
    if (!installed.empty() && isFolder(pathOf(installed))) return;
    std::error_code none;
    const fs::path content = findContent(fs::read_symlink("/proc/self/exe", none));
    if (content.empty())
        DbgStream() << "no factory content: neither installed nor in the source";
    else if (OrvUtils::setOrvProgDir(textOf(content)))
        OrvUtils::install(false);
}
}  // namespace Host
