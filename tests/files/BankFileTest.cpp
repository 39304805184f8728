#include "backend/files/BankFile.h"

#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <random>
#include <thread>

#include <gtest/gtest.h>

#include "api/Bank.h"
#include "tests/stage/FileFault.h"
#include "tests/stage/TemporaryFolder.h"

using namespace Backend;

namespace
{
const std::string HEAD = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n\n<Bank>\n";
const std::string END = "</Bank>\n";

std::string program(const std::string& name, int layers = 1)
{
    std::string text = "<Program name=\"" + name + "\" tempo=\"120\" tempoSource=\"-1\">\n\t<Layers merge=\"false\">\n";
    for (int layer = 0; layer < layers; ++layer) text += "\t\t<Layer>\n\t\t</Layer>\n";
    return text + "\t</Layers>\n</Program>\n";
}

struct BankFolder : TemporaryFolder {
    BankFile bank;

    std::string path() const { return (*this / "a.bnk").string(); }
    bool open(const std::string& text)
    {
        write("a.bnk", text);
        return bank.open(path());
    }
    std::string text() const { return read("a.bnk"); }

    /// What the file holds for anyone who reads it now, and what the one who wrote it believes.
    std::string names()
    {
        std::string all;
        for (const std::string& name : Bank::fromFile(path()).programNames) all += name + " ";
        std::string believed;
        if (bank.open(path()))
            for (const std::string& name : bank.getProgramNames()) believed += name + " ";
        EXPECT_EQ(all, believed);
        for (std::size_t i = 0; i < bank.getProgramNames().size(); ++i)
            EXPECT_EQ(bank.readProgram(static_cast<int>(i)).getAttribute("name"), bank.getProgramNames()[i]);
        return all;
    }
};
}  // namespace

TEST(BankFile, AProgramTakesThePlaceOfAnotherAndNothingElseMoves)
{
    const std::string fresh = program("new", 2);
    const std::string rows[][3] = {
        {HEAD + program("a"), program("b"), program("c") + END},
        {HEAD + "<!-- <Program -->\n" + program("a"), "\t  " + program("b"), "<!-- c -->\n" + END},
        {"<Bank>\r\n<Program name='a'>\r\n</Program>\r\n", "<Program name='b'>\r\n</Program>\r\n", "</Bank>\r\n"},
        {HEAD + "<Program name=\"&lt;Program \" x='</Program><Program '/>\n", "<Program/>\n", END},
        {"\xEF\xBB\xBF<Bank><Program/>\n<!--\n-->", "<Program name='b'\n/>", program("c") + END},
    };
    for (const auto& [before, old, behind] : rows) {
        BankFolder folder;
        ASSERT_TRUE(folder.open(before + old + behind)) << before + old + behind;
        ASSERT_TRUE(folder.bank.replaceProgram(1, fresh));
        const bool ownLine = before.ends_with('\n');
        EXPECT_EQ(folder.text(), before + (ownLine ? "" : "\n") + fresh + behind);
        folder.names();
        if (!ownLine) continue;
        EXPECT_TRUE(folder.bank.replaceProgram(1, old)) << "by what the first save left behind";
        EXPECT_EQ(folder.text(), before + old + behind);
    }
}

TEST(BankFile, KeepsTheNeighboursOnTheSameLine)
{
    BankFolder folder;
    folder.open("<Bank><Program name='a'/><Program name='b'/><Program name='c'/></Bank>");
    ASSERT_TRUE(folder.bank.replaceProgram(1, program("new")));
    EXPECT_EQ(folder.text(), "<Bank><Program name='a'/>\n" + program("new") + "<Program name='c'/></Bank>");
    ASSERT_TRUE(folder.bank.replaceProgram(0, program("first")));
    ASSERT_TRUE(folder.bank.replaceProgram(2, program("last")));
    EXPECT_EQ(folder.text(), "<Bank>\n" + program("first") + program("new") + program("last") + "</Bank>");
    EXPECT_EQ(folder.names(), "first new last ");
}

TEST(BankFile, ABankThatCannotTakeTheProgramStaysAsItIs)
{
    const std::string good = HEAD + program("a") + END;
    const std::string bad[] = {HEAD + program("a"),
                               HEAD + program("a") + "</Bnk>\n",
                               "",
                               "buy strings",
                               HEAD + "<Program name=\"\xFF\"/>" + END,
                               HEAD + "<Program name=\"a\"><Layers></Program>" + END,
                               HEAD + "<Program name=a/>" + END,
                               HEAD + program("a") + END + "rest"};
    for (const std::string& text : bad) {
        BankFolder folder;
        EXPECT_FALSE(folder.open(text)) << text;
        EXPECT_EQ(folder.names(), "");
        EXPECT_FALSE(folder.bank.replaceProgram(0, program("b")));
        EXPECT_FALSE(folder.bank.resize(2));
        EXPECT_EQ(folder.text(), text);
    }
    BankFolder folder;
    folder.open(good);
    for (const int number : {-1, 1, 100000}) EXPECT_FALSE(folder.bank.replaceProgram(number, program("b")));
    for (const std::string& element : {std::string(), std::string("<Program"), std::string("<Layers/>\n"),
                                       program("\xFF"), program("x") + program("y"), program("a\" b=\"<!--")})
        EXPECT_EQ(folder.bank.replaceProgram(0, element), element == program("a\" b=\"<!--")) << element;
    EXPECT_TRUE(folder.bank.replaceProgram(0, program("a")));
    EXPECT_EQ(folder.text(), good);
    for (const int size : {0, -5, BankFile::MAX_PROGRAMS + 1}) EXPECT_FALSE(folder.bank.resize(size));
    EXPECT_FALSE(folder.bank.open(folder.string())) << "a folder";
    EXPECT_FALSE(folder.bank.open((folder / "none.bnk").string()));
    EXPECT_FALSE(folder.bank.readProgram(0).hasElement());
}

TEST(BankFile, GrowsByEmptyProgramsAndShrinksFromTheEnd)
{
    const std::string empty = "<Program name=\"Empty\">\n</Program>\n";
    struct Row {
        std::string before;
        int size;
        std::string after;
    };
    const Row rows[] = {
        {HEAD + program("a") + program("b") + END, 4, HEAD + program("a") + program("b") + empty + empty + END},
        {HEAD + program("a") + "<!-- b: -->\n" + program("b") + program("c") + END, 1,
         HEAD + program("a") + "<!-- b: -->\n" + END},
        {HEAD + program("a") + END, 1, HEAD + program("a") + END},
        {"<Bank a='/>'/>", 1, "<Bank a='/>'>\n" + empty + "</Bank>"},
        {"<ProgramFile><Program/></ProgramFile> <!-- mine -->", 2,
         "<ProgramFile><Program/>\n" + empty + "</ProgramFile> <!-- mine -->"},
        {"<Bank>\r\n  <Program/>\r\n  <Program/>\r\n  </Bank>\r\n", 1, "<Bank>\r\n  <Program/>\r\n</Bank>\r\n"},
    };
    for (const auto& [before, size, after] : rows) {
        BankFolder folder;
        ASSERT_TRUE(folder.open(before));
        EXPECT_TRUE(folder.bank.resize(size));
        EXPECT_EQ(folder.text(), after);
        folder.names();
        EXPECT_EQ(static_cast<int>(folder.bank.getProgramNames().size()), size);
    }
}

TEST(BankFile, IsReadAnewWhenSomeoneElseWroteToIt)
{
    BankFolder folder;
    folder.open(HEAD + program("a") + program("b") + END);
    folder.write("a.bnk", HEAD + program("x") + program("y") + END);
    EXPECT_EQ(folder.bank.readProgram(1).getAttribute("name"), "y") << "of the same size and perhaps the same time";
    folder.write("a.bnk", HEAD + program("longer") + program("y") + program("z") + END);
    EXPECT_EQ(folder.bank.readProgram(2).getAttribute("name"), "z");
    folder.write("a.bnk", HEAD + program("y") + program("longer") + program("z") + END);
    EXPECT_TRUE(folder.bank.replaceProgram(1, program("b")));
    EXPECT_EQ(folder.names(), "y b z ");
    folder.write("a.bnk", HEAD);
    EXPECT_FALSE(folder.bank.readProgram(0).hasElement());
}

TEST(BankFile, AFullDiskLeavesTheOldBankOrTheNewOne)
{
    const std::string before = HEAD + program("a") + program("b") + END;
    for (int call = 0;; ++call) {
        BankFolder folder;
        folder.open(before);
        bool written = false;
        {
            const FileFault fault(FileFault::Kind::fullDisk, call);
            written = folder.bank.replaceProgram(0, program("new", 3));
            if (!fault.hasHappened()) break;
        }
        EXPECT_EQ(folder.text(), written ? HEAD + program("new", 3) + program("b") + END : before) << "call " << call;
        EXPECT_EQ(folder.contents(), "a.bnk") << "call " << call;
        EXPECT_EQ(folder.names(), written ? "new b " : "a b ");
    }
}

/// A child saves and resizes without a pause, and is killed at some moment of it, two hundred times.
TEST(BankFile, IsWholeWheneverTheProcessDies)
{
    BankFolder folder;
    std::string text = HEAD;
    for (int i = 0; i < 20; ++i) text += program("p" + std::to_string(i), 20);
    folder.open(text + END);
    std::mt19937 random(1);
    int torn = 0;
    for (int death = 0; death < 200; ++death) {
        const pid_t child = ::fork();
        if (child == 0) {
            BankFile bank;
            for (int save = 0;; ++save) {
                bank.open(folder.path());
                bank.replaceProgram(save % 20, program("n" + std::to_string(save), 1 + save % 40));
                if (save % 16 == 15) bank.resize(20 + save % 3);
            }
        }
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 4000));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        const auto names = Bank::fromFile(folder.path()).programNames;
        ASSERT_TRUE(names.size() >= 20 && names.size() <= 22) << "death " << death;
        if (folder.contents() != "a.bnk") ++torn;
    }
    EXPECT_GT(torn, 0) << "no death came in the midst of a save, so nothing was tried";
}
