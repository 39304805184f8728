#include <gtest/gtest.h>
#include <windows.h>

#include "platform/Folders.h"
#include "platform/Path.h"
#include "platform/SettingsStore.h"

namespace
{
const std::string TEST_KEY = "Software\\Brinlow Software\\Orvane Test\\3.2";
const wchar_t* const PATH = L"Software\\Brinlow Software\\Orvane Test";

struct Registry : testing::Test {
    Registry() { RegDeleteTreeW(HKEY_CURRENT_USER, PATH); }
    ~Registry() override { RegDeleteTreeW(HKEY_CURRENT_USER, PATH); }

    /// A value as the system has it, if it is of that type.
    static std::vector<std::uint8_t> valueOf(const wchar_t* name, DWORD type)
    {
        std::vector<std::uint8_t> bytes(1000);
        DWORD size = 1000;
        DWORD found = REG_NONE;
        const std::wstring key = std::wstring(PATH) + L"\\3.2";
        RegGetValueW(HKEY_CURRENT_USER, key.c_str(), name, RRF_RT_ANY, &found, bytes.data(), &size);
        bytes.resize(found == type ? size : 0);
        return bytes;
    }
};
}  // namespace

TEST_F(Registry, KeepsEveryKindOfValueAndWhatItDoesNotKnow)
{
    {
        SettingsStore store(TEST_KEY);
        EXPECT_TRUE(store.isOpen() && !store.exists());
        store.setString("Text", "\xC3\x84 bank.bnk");
        store.setString("Empty", "");
        store.setNumber("Lowest", INT32_MIN);
        store.setBytes("Bytes", std::vector<std::uint8_t>{0, 255, 16});
        ASSERT_TRUE(store.save());
    }
    EXPECT_EQ(valueOf(L"Text", REG_SZ).size(), sizeof L"X bank.bnk");
    EXPECT_EQ(valueOf(L"Lowest", REG_DWORD), (std::vector<std::uint8_t>{0, 0, 0, 0x80}));
    EXPECT_EQ(valueOf(L"Bytes", REG_BINARY), (std::vector<std::uint8_t>{0, 255, 16}));

    const std::wstring key = std::wstring(PATH) + L"\\3.2";
    const std::uint64_t future = 1;
    RegSetKeyValueW(HKEY_CURRENT_USER, key.c_str(), L"Future", REG_QWORD, &future, sizeof future);
    SettingsStore store(TEST_KEY);
    EXPECT_TRUE(store.exists());
    EXPECT_EQ(store.getString("text"), "\xC3\x84 bank.bnk") << "names are compared without case";
    EXPECT_EQ(store.getString("Empty"), "");
    EXPECT_EQ(store.getNumber("Lowest"), INT32_MIN);
    EXPECT_EQ(store.getBytes("Bytes"), (std::vector<std::uint8_t>{0, 255, 16}));
    EXPECT_FALSE(store.getNumber("Text") || store.getString("Bytes") || store.getNumber("Future"));
    store.setNumber("Lowest", 7);
    ASSERT_TRUE(store.save());
    EXPECT_EQ(SettingsStore(TEST_KEY).getNumber("Lowest"), 7);
    EXPECT_EQ(valueOf(L"Future", REG_QWORD).size(), sizeof future);
}

TEST(Folders, AreTheUsersOfTheSystem)
{
    const std::string folder = Folders::getLocalApplicationData();
    EXPECT_TRUE(std::filesystem::is_directory(pathOf(folder))) << folder;
    EXPECT_FALSE(folder.ends_with('\\'));
}
