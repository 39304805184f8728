#include "host/common/Installer.h"

#include <system_error>

#include "api/OrvUtils.h"
#include "host/common/ProgramFile.h"
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
    const fs::path content = program.parent_path().parent_path() / "share/orvane";
    return isFolder(content / "Default") ? content : fs::path();
}

fs::path findContent() { return findContent(programFile()); }

void installIfNeeded()
{
    const std::string installed = OrvUtils::getOrvProgDir();
    if (!installed.empty() && isFolder(pathOf(installed))) return;
    const fs::path content = findContent();
    if (content.empty())
        DbgStream() << "no factory content in ../share/orvane of the program";
    else if (OrvUtils::setOrvProgDir(textOf(content)))
        OrvUtils::install(false);
}
}  // namespace Host
