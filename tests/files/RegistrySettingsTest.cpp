#include "backend/files/RegistrySettings.h"

#include <gtest/gtest.h>

#include "platform/SettingsStore.h"
#include "tests/stage/FileFault.h"
#include "tests/stage/PrivateFolders.h"

using namespace Backend;

namespace
{
const std::string KEY = "Software\\Brinlow Software\\Test\\3.2";
const std::string FILE_NAME = "config/Brinlow Software/Test/3.2";

/// Every setting of one becomes the other's.
void copy(const RegistrySettings& from, RegistrySettings& to)
{
    to.setDefaultBank(from.getDefaultBank());
    to.setGlobalKeyboard(from.getGlobalKeyboard());
    to.setMidiThru(from.getMidiThru());
    to.setRetroRecordEnabled(from.isRetroRecordEnabled());
    to.setRetroRecordBufferSize(from.getRetroRecordBufferSize());
    to.setMidiBufferDir(from.getMidiBufferDir());
    to.setLargeDisplayFont(from.getLargeDisplayFont());
    to.setMouseSensitivity(from.getMouseSensitivity());
    to.setDockToBottomEdge(from.getDockToBottomEdge());
    to.setDisplayMidiInputEvents(from.getDisplayMidiInputEvents());
    to.setDisplayMidiOutputEvents(from.getDisplayMidiOutputEvents());
    to.setDisplayNumbers(from.getDisplayNumbers());
    to.setDisplayHeight(from.getDisplayHeight());
    to.setLastWindowPosition(from.getLastWindowPosition());
    to.setAlwaysOnTop(from.getAlwaysOnTop());
    to.setUseSkinBorder(from.getUseSkinBorder());
    to.setDefaultMidiOutput(from.getDefaultMidiOutput());
    to.setLiteVelocity(from.getLiteVelocity());
    to.setLiteChannel(from.getLiteChannel());
    to.setLiteStackNotes(from.getLiteStackNotes());
    to.setClickZoneChannelTranspose(from.getClickZoneChannelTranspose());
    to.setScreens(from.getScreens());
    for (int port = 0; port < 6; ++port) {
        if (port < 2) to.setMidiInputEnabled(port, from.getEnabledMidiInputs().at(port));
        to.setMidiOutputEnabled(port, from.getEnabledMidiOutputs().at(port));
    }
    to.setMidiOutputEnabled(-1, true);
}

/// Everything away from its default.
const char* const CHANGED =
    "DefaultBank=string:/home/Jörg/Über \\\\ all.bnk\nGlobalKeyboard=number:1\nMidiThru=number:0\n"
    "RetroRecordEnabled=number:0\nMaxMidiBufferFileSize=number:5000\nMidiBufferDir=string:/tmp\n"
    "LargeDisplayFont=number:1\nMouseSensitivity=number:4\nDockToBottomEdge=number:1\n"
    "DisplayMidiInputEvents=number:1\nDisplayMidiOutputEvents=number:0\nDisplayNumbers=number:1\n"
    "DisplayHeight=number:300\nLastWindowPosition=hex:f6ffffff140000001e00000070110100\n"
    "EnabledMidiInputs=string:NY\nEnabledMidiOutputs=string:NNNNNY\nAlwaysOnTop=number:1\nUseSkinBorder=number:0\n"
    "DefaultMidiOutput=number:2\nLiteVelocity=number:90\nLiteChannel=number:15\nLiteStackNotes=number:0\n"
    "ClickZoneChannelTranspose=number:1\nScreenState=string:YNY\n";

const char* const PORTS_ALONE = "EnabledMidiInputs=string:\nEnabledMidiOutputs=string:\n";
}  // namespace

TEST(RegistrySettings, AreWrittenUnderTheirNamesInTheOrderOfTheTable)
{
    const PrivateFolders folder;
    folder.write(FILE_NAME, CHANGED);
    RegistrySettings loaded;
    loaded.loadFromRegistry(KEY);
    std::filesystem::remove(folder / FILE_NAME);
    loaded.saveToRegistry(KEY);
    EXPECT_EQ(folder.read(FILE_NAME), "EnabledMidiInputs=string:NY\nEnabledMidiOutputs=string:NNNNNY\n")
        << "loading sets nothing";
    RegistrySettings settings;
    copy(loaded, settings);
    std::filesystem::remove(folder / FILE_NAME);
    settings.saveToRegistry(KEY);
    EXPECT_EQ(folder.read(FILE_NAME), CHANGED);
}

TEST(RegistrySettings, AreWrittenOnlyOnceTheyWereSet)
{
    const PrivateFolders folder;
    RegistrySettings settings;
    settings.saveToRegistry(KEY);
    EXPECT_EQ(folder.read(FILE_NAME), PORTS_ALONE);
    settings.setMidiThru(true);
    settings.saveToRegistry(KEY);
    EXPECT_EQ(folder.read(FILE_NAME), std::string(PORTS_ALONE) + "MidiThru=number:1\n") << "set, if to its default";

    std::filesystem::remove(folder / FILE_NAME);
    settings.saveToRegistry(KEY);
    EXPECT_EQ(folder.read(FILE_NAME), PORTS_ALONE) << "nothing was set since";
}

TEST(RegistrySettings, KeepTheirDefaultWhereAValueDoesNotFit)
{
    const PrivateFolders folder;
    const std::string longest(999, 'b');
    folder.write(FILE_NAME, "DefaultBank=string:" + longest +
                                "x\nMidiThru=string:0\nLiteChannel=number:4294967296\nDisplayHeight=hex:00\n"
                                "LastWindowPosition=hex:000102\nGlobalKeyboard=number:-2\nEnabledMidiInputs=string:"
                                "yYnNx\nMidiBufferDir=string:cut\\0here\n");
    RegistrySettings settings;
    EXPECT_TRUE(settings.loadFromRegistry(KEY));
    EXPECT_EQ(settings.getDefaultBank(), "");
    EXPECT_TRUE(settings.getMidiThru());
    EXPECT_EQ(settings.getLiteChannel(), 0);
    EXPECT_EQ(settings.getDisplayHeight(), 200);
    EXPECT_EQ(settings.getLastWindowPosition(), (WindowsLib::Rect{-1, -1, -1, -1}));
    EXPECT_TRUE(settings.getGlobalKeyboard()) << "anything but 0 is on";
    EXPECT_EQ(settings.getEnabledMidiInputs(), (std::vector{true, true, false, false, false}));
    EXPECT_EQ(settings.getMidiBufferDir(), "cut");

    folder.write(FILE_NAME, "DefaultBank=string:" + longest + "\n");
    settings.loadFromRegistry(KEY);
    EXPECT_EQ(settings.getDefaultBank(), longest);
    EXPECT_FALSE(settings.loadFromRegistry("no such place"));
}

TEST(RegistrySettings, OfTwoProgramsDoNotUndoEachOther)
{
    const PrivateFolders folder;
    RegistrySettings one;
    RegistrySettings other;
    one.setLiteVelocity(64);
    other.setLiteChannel(9);
    one.saveToRegistry(KEY);
    other.saveToRegistry(KEY);
    RegistrySettings found;
    found.loadFromRegistry(KEY);
    EXPECT_EQ(found.getLiteVelocity(), 64);
    EXPECT_EQ(found.getLiteChannel(), 9);
}

TEST(RegistrySettings, ThatCouldNotBeWrittenAreWrittenTheNextTime)
{
    for (int call = 0;; ++call) {
        const PrivateFolders folder;
        RegistrySettings settings;
        settings.setLiteVelocity(64);
        if (!saveWithFault(call, [&] { return settings.saveToRegistry(KEY); })) break;
        EXPECT_TRUE(settings.saveToRegistry(KEY));
        EXPECT_EQ(folder.read(FILE_NAME), std::string(PORTS_ALONE) + "LiteVelocity=number:64\n") << "call " << call;
    }
}
