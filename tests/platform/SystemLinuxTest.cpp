#include <gtest/gtest.h>
#include <sched.h>
#include <sys/stat.h>

#include <thread>

#include "platform/Shell.h"
#include "platform/Thread.h"
#include "platform/linux/SequencerClients.h"
#include "tests/stage/PrivateFolders.h"

TEST(Thread, GoesOnWithoutRealTimePriorityAndPassesNoneOn)
{
    Thread clock;
    Thread child;
    clock.start("clock", [&] {
        const bool granted = requestRealTimePriority(RealTimeStep::clock);
        EXPECT_EQ(granted, realTimeAnswer(RealTimeStep::clock) == RealTimeAnswer::granted);
        EXPECT_EQ(granted, (sched_getscheduler(0) & ~SCHED_RESET_ON_FORK) == SCHED_FIFO);
        child.start("child", [] { EXPECT_EQ(sched_getscheduler(0), SCHED_OTHER); });
    });
    clock.join();
    child.join();
    EXPECT_NE(realTimeAnswer(RealTimeStep::clock), RealTimeAnswer::none);
}

TEST(SequencerClients, CanBeReadThroughThePortsThatAreOpenToAll)
{
    EXPECT_EQ(readablePorts("Client info\n  cur  clients : 3\n  peak clients : 3\n  max  clients : 192\n\n"
                            "Client   0 : \"System\" [Kernel]\n"
                            "  Port   0 : \"Timer\" (Rwe-)\n"
                            "  Port   1 : \"Announce\" (R-e-)\n    Connecting To: 15:0\n"
                            "Client 128 : \"Keys\" [User]\n"
                            "  Port   0 : \"A \"good\" one\" (RWeX)\n"
                            "  Port   1 : \"for me\" (r---)\n"
                            "  Port   2 : \"Orvane\" (-We-)\n"
                            "  Port   3 : broken\n"
                            "  Port   4 : \"cut"),
              (std::vector<std::string>{"Timer", "Announce", "A \"good\" one"}));
    EXPECT_TRUE(readablePorts("").empty());
}

TEST(Shell, GivesTheDocumentToTheDesktopAndGoesOn)
{
    const TemporaryFolder folder;
    const std::string path = folder.string() + "/a page; touch x $(y) 'z'.htm";
    ::setenv("PATH", folder.string().c_str(), 1);
    EXPECT_EQ(OpenedDocument(path).getProblem(), "xdg-open is not installed");

    folder.write("xdg-open", "#!/bin/sh\nprintf '%s' \"$1\" >\"" + folder.string() + "/opening\"\n/bin/mv \"" +
                                 folder.string() + "/opening\" \"" + folder.string() + "/opened\"\n");
    ::chmod((folder / "xdg-open").c_str(), 0755);
    OpenedDocument document(path);
    EXPECT_EQ(document.getProblem(), "");
    for (int i = 0; i < 6000 && folder.read("opened").empty(); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_EQ(folder.read("opened"), path);
    EXPECT_EQ(document.getProblem(), "");
}

TEST(Folders, AreTheUsersByTheEnvironmentUnlessTheHostSaysOtherwise)
{
    const TemporaryFolder home;
    ::setenv("HOME", home.string().c_str(), 1);
    ::setenv("XDG_DATA_HOME", "relative", 1);
    ::unsetenv("XDG_CONFIG_HOME");
    EXPECT_EQ(Folders::getLocalApplicationData(), home.string() + "/.local/share");
    EXPECT_TRUE(std::filesystem::is_directory(home / ".local/share"));
    EXPECT_EQ(Folders::getSettings(), home.string() + "/.config");
    EXPECT_FALSE(std::filesystem::exists(home / ".config"));

    ::setenv("XDG_DATA_HOME", (home.string() + "/data/").c_str(), 1);
    ::setenv("XDG_CONFIG_HOME", (home.string() + "/config").c_str(), 1);
    EXPECT_EQ(Folders::getLocalApplicationData(), home.string() + "/data");
    EXPECT_EQ(Folders::getSettings(), home.string() + "/config");

    const PrivateFolders folder;
    EXPECT_EQ(Folders::getSettings(), folder.string() + "/config");
    home.write("file", "");
    Folders::setLocalApplicationData(home.string() + "/file");
    EXPECT_EQ(Folders::getLocalApplicationData(), "") << "cannot be a folder";
}
