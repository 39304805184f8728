#include "host/common/Installer.h"

#include <gtest/gtest.h>

#include "api/OrvUtils.h"
#include "tests/stage/PrivateFolders.h"

namespace Host
{
namespace
{
using Backend::OrvUtils;

TEST(Installer, SaysWhereTheContentIsUnlessAnInstallerDid)
{
    const PrivateFolders folder;
    installIfNeeded();
    const std::string content = OrvUtils::getOrvProgDir();
    EXPECT_TRUE(std::filesystem::is_directory(content + "/Default")) << content;

    folder.write("other/Default/README", "");
    OrvUtils::setOrvProgDir((folder / "other").string());
    installIfNeeded();
    EXPECT_EQ(OrvUtils::getOrvProgDir(), (folder / "other").string());
    std::filesystem::remove_all(folder / "other");
    installIfNeeded();
    EXPECT_EQ(OrvUtils::getOrvProgDir(), content);
}

}  // namespace
}  // namespace Host
