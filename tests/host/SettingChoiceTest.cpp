#include "host/render/SettingChoice.h"

#include <gtest/gtest.h>

#include "api/OrvUtils.h"
#include "tests/host/HostTesting.h"
#include "tests/stage/PrivateFolders.h"

namespace Host
{
namespace
{
using Backend::OrvUtils;
using Testing::complaintOf;

TEST(SettingChoice, IsStoredInTheFormOfItsSetting)
{
    const PrivateFolders folder;
    SettingsStore store(OrvUtils::getRegistryKey("Test"));
    for (const char* choice : {"MidiThru=0", "LiteVelocity=-5", "DefaultBank=a=b c", "LastWindowPosition=1,-1,0,256"})
        storeChoice(store, choice);
    store.save();
    EXPECT_EQ(folder.read("config/Brinlow Software/Test/3.2"),
              "MidiThru=number:0\nLiteVelocity=number:-5\nDefaultBank=string:a=b c\n"
              "LastWindowPosition=hex:01000000ffffffff0000000000010000\n");
}

TEST(SettingChoice, IsRefusedInOneLineIfThereIsNoSuchSettingOrValue)
{
    SettingsStore store("none");
    const struct {
        const char* choice;
        const char* complaint;
    } rows[] = {{"MidiThru", "--set MidiThru: NAME=VALUE expected"},
                {"midithru=1", "--set midithru=1: there is no setting midithru"},
                {"=1", "--set =1: there is no setting "},
                {"MidiThru=2", "--set MidiThru=2: 0 or 1 expected"},
                {"MidiThru=", "--set MidiThru=: 0 or 1 expected"},
                {"LiteChannel=1x", "--set LiteChannel=1x: a number expected"},
                {"LiteChannel=2147483648", "--set LiteChannel=2147483648: a number expected"},
                {"LastWindowPosition=1,2,3", "--set LastWindowPosition=1,2,3: left,top,right,bottom expected"},
                {"LastWindowPosition=1,2,3,4,5", "--set LastWindowPosition=1,2,3,4,5: left,top,right,bottom expected"}};
    for (const auto& row : rows) EXPECT_EQ(complaintOf([&] { storeChoice(store, row.choice); }), row.complaint);
}
}  // namespace
}  // namespace Host
