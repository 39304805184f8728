#include "api/OrvUtils.h"
#include "tests/gui/HelpPanelStage.h"

TEST_F(HelpPanel, OpensTheManualWhereThereIsOne)
{
    EXPECT_THROW(button("Manual"), std::runtime_error);

    folder.write("prog/Manual/index.htm", "");
    folder.write("xdg-open", "#!/bin/sh\nprintf '%s' \"$1\" >\"" + path("opened") + "\"\n");
    std::filesystem::permissions(path("xdg-open"), std::filesystem::perms::owner_all);
    Backend::OrvUtils::setOrvProgDir(path("prog"));
    qputenv("PATH", QByteArray::fromStdString(folder.string()) + ":" + qgetenv("PATH"));
    reopen();
    EXPECT_TRUE(fits());
    EXPECT_FALSE(area().geometry().intersects(button("Manual").geometry()));
    Hands::click(button("Manual"));
    EXPECT_TRUE(QTest::qWaitFor([this] { return !folder.read("opened").empty(); }));
    EXPECT_EQ(folder.read("opened"), path("prog/Manual/index.htm"));

    folder.write("xdg-open", "#!/bin/sh\nexit 3\n");
    Hands::click(button("Manual"));
    EXPECT_TRUE(QTest::qWaitFor([this] { return help().starts_with("The manual"); }, 30000));
    EXPECT_EQ(help(), "The manual cannot be opened because xdg-open finds no program for it. Its file is " +
                          path("prog/Manual/index.htm") + ".");
}
