#include "platform/SettingsStore.h"

#include <gtest/gtest.h>

#include "tests/stage/PrivateFolders.h"

namespace
{
const std::string KEY = "Software\\Brinlow Software\\Orvane 3\\3.2";
const std::string FOLDER = "config/Brinlow Software/Orvane 3";
const std::string FILE_NAME = FOLDER + "/3.2";

using Bytes = std::vector<std::uint8_t>;
}  // namespace

TEST(SettingsStore, KeepsEveryTypeInOneLineEach)
{
    const PrivateFolders folder;
    const std::string odd = std::string("line\nend\r\\n \t=string: \xff") + '\0' + "behind";
    SettingsStore store(KEY);
    EXPECT_FALSE(store.exists());
    store.setString("Odd", odd);
    store.setString("Empty", "");
    store.setNumber("Lowest", INT32_MIN);
    store.setBytes("Bytes", Bytes{0, 255, 16});
    store.setNumber("Lowest", -7);
    ASSERT_TRUE(store.save());

    EXPECT_EQ(folder.read(FILE_NAME),
              "Odd=string:line\\nend\\r\\\\n \t=string: \xff\\0behind\nEmpty=string:\nLowest=number:-7\n"
              "Bytes=hex:00ff10\n");
    const SettingsStore again(KEY);
    EXPECT_TRUE(again.exists());
    EXPECT_EQ(again.getString("Odd"), odd);
    EXPECT_EQ(again.getString("Empty"), "");
    EXPECT_EQ(again.getNumber("Lowest"), -7);
    EXPECT_EQ(again.getBytes("Bytes"), (Bytes{0, 255, 16}));
}

TEST(SettingsStore, HasNoValueWhereTheTextIsWrong)
{
    const PrivateFolders folder;
    for (const std::string text : {"A=number:",
                                   "A=number:x",
                                   "A=number:1x",
                                   "A=number: 1",
                                   "A=number:2147483648",
                                   "A=number:+1",
                                   "A=hex:0",
                                   "A=hex:0g",
                                   "A=hex:-1",
                                   "A=string:lone \\",
                                   "A=string:odd \\q",
                                   "A=strings:other",
                                   "A",
                                   "=number:1",
                                   " A=number:1",
                                   "AA=number:1",
                                   "a=number:1",
                                   "A =number:1",
                                   "A=number:1\nA=nothing",
                                   "B=A=number:1",
                                   ""}) {
        folder.write(FILE_NAME, text);
        const SettingsStore store(KEY);
        EXPECT_FALSE(store.getNumber("A") || store.getString("A") || store.getBytes("A")) << text;
    }
    folder.write(FILE_NAME, "A=number:1\r\nA=number:2\r\nB=string:x\r\n");
    const SettingsStore store(KEY);
    EXPECT_EQ(store.getNumber("A"), 2) << "the last one counts";
    EXPECT_EQ(store.getString("B"), "x") << "line ends are read either way";
    EXPECT_FALSE(store.getString("A") || store.getNumber("B")) << "asked for as another type";
}

TEST(SettingsStore, LeavesLinesAloneThatItDoesNotKnow)
{
    const PrivateFolders folder;
    folder.write(FILE_NAME, "# mine\n\nA=number:1\nFuture=float:1.5\nB=string:x");
    SettingsStore store(KEY);
    store.setNumber("A", 2);
    store.setNumber("C", 3);
    ASSERT_TRUE(store.save());
    EXPECT_EQ(folder.read(FILE_NAME), "# mine\n\nA=number:2\nFuture=float:1.5\nB=string:x\nC=number:3\n");
}

TEST(SettingsStore, MovesAsideWhatItCannotReadButOnlyToWrite)
{
    struct Row {
        const char* what;
        void (*spoil)(const PrivateFolders& folder);
    };
    const Row rows[] = {
        {"a folder", [](const PrivateFolders& folder) { std::filesystem::create_directories(folder / FILE_NAME); }},
        {"no text", [](const PrivateFolders& folder) { folder.write(FILE_NAME, std::string("A=number:1\n\0", 12)); }},
        {"endless", [](const PrivateFolders& folder) { folder.write(FILE_NAME, std::string(2u << 20, 'x')); }},
        {"locked",
         [](const PrivateFolders& folder) {
             folder.write(FILE_NAME, "A=number:1\n");
             std::filesystem::permissions(folder / FILE_NAME, std::filesystem::perms::none);
         }},
    };
    for (const Row& row : rows) {
        const PrivateFolders folder;
        row.spoil(folder);
        if (row.what == std::string("locked") && folder.read(FILE_NAME) != "") continue;  // as for the superuser
        {
            SettingsStore store(KEY);
            EXPECT_TRUE(store.exists() && !store.getNumber("A")) << row.what;
            EXPECT_EQ(folder.contents(FOLDER), "3.2") << row.what;
            store.setNumber("A", 5);
            ASSERT_TRUE(store.save()) << row.what;
        }
        EXPECT_EQ(folder.contents(FOLDER), "3.2 3.2.unreadable") << row.what;
        EXPECT_EQ(folder.read(FILE_NAME), "A=number:5\n") << row.what;
        std::filesystem::remove(folder / FILE_NAME);
        row.spoil(folder);
        SettingsStore store(KEY);
        EXPECT_TRUE(store.save());
        EXPECT_EQ(folder.contents(FOLDER), "3.2 3.2.unreadable 3.2.unreadable-2") << row.what;
    }
}

TEST(SettingsStore, HasNoPlaceForAKeyThatIsNoFileName)
{
    const PrivateFolders folder;
    for (const char* key : {"", "Software", "Software\\", "Software\\..\\x", "Software\\a\\\\b", "Software\\a/b\\3.2",
                            "Software\\.", "Hardware\\a", "/etc/passwd"}) {
        SettingsStore store(key);
        EXPECT_FALSE(store.isOpen()) << key;
        store.setNumber("A", 1);
        EXPECT_FALSE(store.save()) << key;
    }
    EXPECT_EQ(folder.contents(), "");
}
