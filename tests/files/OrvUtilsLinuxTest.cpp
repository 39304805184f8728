#include <sys/stat.h>

#include <thread>

#include <gtest/gtest.h>

#include "api/OrvUtils.h"
#include "tests/stage/PrivateFolders.h"

using Backend::OrvUtils;

TEST(OrvUtils, OpensPagesOfTheManualAndNothingElse)
{
    const PrivateFolders folder;
    ::setenv("PATH", folder.string().c_str(), 1);
    OrvUtils::setOrvProgDir("/prog");
    EXPECT_EQ(OrvUtils::showManual("")(),
              "The manual cannot be opened because xdg-open is not installed. Its file is /prog/Manual/index.htm.");
    OrvUtils::setOrvProgDir("");
    folder.write("xdg-open", "#!/bin/sh\nprintf '%s\\n' \"$1\" >>\"" + (folder / "opened").string() + "\"\n");
    ::chmod((folder / "xdg-open").c_str(), 0755);
    const auto open = [&](std::string_view page) {
        const auto before = folder.read("opened").size();
        OrvUtils::showManual(page);
        for (int i = 0; i < 1000 && folder.read("opened").size() == before; ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
    };
    EXPECT_EQ(OrvUtils::showManual("before.htm")(), "The manual is not installed.");
    OrvUtils::setOrvProgDir("/prog");
    for (const std::string_view page : {"../x.htm", "/etc/passwd", "a/../../x", "..", "a\\b", "file:x"})
        OrvUtils::showManual(page);
    OrvUtils::showManual(std::string_view("a\0b", 3));
    open(" presets.htm ");
    open("  ");
    open("sub/page.htm");
    EXPECT_EQ(folder.read("opened"), "/prog/Manual/presets.htm\n/prog/Manual/index.htm\n/prog/Manual/sub/page.htm\n");
}
