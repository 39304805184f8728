#include "backend/files/BankFile.h"

#include <gtest/gtest.h>

#include "api/Bank.h"
#include "tests/stage/FileFault.h"
#include "tests/stage/TemporaryFolder.h"
#include "tests/stage/Text.h"

using namespace Backend;

namespace
{
const std::string HEAD = XML_HEAD + "<Bank>\n";
const std::string END = "</Bank>\n";

std::string program(const std::string& name, int layers = 1)
{
    std::string text = "<Program name=\"" + name + "\" tempo=\"120\" tempoSource=\"-1\">\n\t<Layers merge=\"false\">\n";
    for (int layer = 0; layer < layers; ++layer) text += "\t\t<Layer>\n\t\t</Layer>\n";
    return text + "\t</Layers>\n</Program>\n";
}

/// A bank file with this text.
struct BankFolder : TemporaryFolder {
    BankFile bank;
    bool isOpen;

    explicit BankFolder(const std::string& text)
    {
        writeBank(text);
        isOpen = bank.open(path());
    }
    std::string path() const { return (*this / "a.bnk").string(); }
    void writeBank(const std::string& text) { write("a.bnk", text); }
    std::string text() const { return read("a.bnk"); }

    /// The programs of the file, as another reader finds them and as the one who wrote them has them.
    std::string names()
    {
        const auto found = Bank::fromFile(path()).programNames;
        EXPECT_EQ(bank.open(path()) ? bank.getProgramNames() : std::vector<std::string>(), found);
        for (std::size_t i = 0; i < found.size(); ++i)
            EXPECT_EQ(bank.readProgram(static_cast<int>(i)).getAttribute("name"), found[i]);
        return joined(found, [](const std::string& name) { return name.empty() ? "-" : name; });
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
    for (const auto& [before, old, after] : rows) {
        BankFolder folder(before + old + after);
        ASSERT_TRUE(folder.isOpen) << before + old + after;
        ASSERT_TRUE(folder.bank.replaceProgram(1, fresh));
        const bool ownLine = before.ends_with('\n');
        EXPECT_EQ(folder.text(), before + (ownLine ? "" : "\n") + fresh + after);
        folder.names();
        if (!ownLine) continue;
        EXPECT_TRUE(folder.bank.replaceProgram(1, old)) << "by what the first save left behind";
        EXPECT_EQ(folder.text(), before + old + after);
    }

    BankFolder folder("<Bank><Program name='a'/><Program name='b'/><Program name='c'/></Bank>");
    ASSERT_TRUE(folder.bank.replaceProgram(1, program("new")));
    EXPECT_EQ(folder.text(), "<Bank><Program name='a'/>\n" + program("new") + "<Program name='c'/></Bank>");
    ASSERT_TRUE(folder.bank.replaceProgram(0, program("first")));
    ASSERT_TRUE(folder.bank.replaceProgram(2, program("last")));
    EXPECT_EQ(folder.text(), "<Bank>\n" + program("first") + program("new") + program("last") + "</Bank>");
    EXPECT_EQ(folder.names(), "first new last");
}

TEST(BankFile, ABankThatCannotTakeTheProgramStaysAsItIs)
{
    const std::string good = HEAD + program("a") + END;
    for (const std::string& text :
         {HEAD + program("a"), HEAD + program("a") + "</Bnk>\n", std::string(), std::string("buy strings"),
          HEAD + "<Program name=\"\xFF\"/>" + END, HEAD + "<Program name=\"a\"><Layers></Program>" + END,
          HEAD + "<Program name=a/>" + END, good + "rest"}) {
        BankFolder folder(text);
        EXPECT_FALSE(folder.isOpen) << text;
        EXPECT_EQ(folder.names(), "");
        EXPECT_FALSE(folder.bank.replaceProgram(0, program("b")));
        EXPECT_FALSE(folder.bank.resize(2));
        EXPECT_EQ(folder.text(), text);
    }
    BankFolder folder(good);
    for (const int number : {-1, 1, 100000}) EXPECT_FALSE(folder.bank.replaceProgram(number, program("b")));
    for (const std::string& element : {std::string(), std::string("<Program"), std::string("<Layers/>\n"),
                                       program("\xFF"), program("x") + program("y")})
        EXPECT_FALSE(folder.bank.replaceProgram(0, element)) << element;
    EXPECT_TRUE(folder.bank.replaceProgram(0, program("a\" b=\"<!--")));
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
    const struct {
        std::string before;
        int size;
        std::string after;
    } rows[] = {
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
        BankFolder folder(before);
        EXPECT_TRUE(folder.bank.resize(size)) << before;
        EXPECT_EQ(folder.text(), after);
        folder.names();
        EXPECT_EQ(static_cast<int>(folder.bank.getProgramNames().size()), size);
    }
}

TEST(BankFile, PutsProgramsIntoAnyOrderAndBack)
{
    const std::string file = "<Bank><!-- head -->\r\n<Program name='a' />\r\n<!-- <Program> of b -->\n<Other/>" +
                             program("b&amp;c") +
                             "\t<Program\n tempo='9' name = 'd'></Program><Program/>\n<!-- end --></Bank>";
    BankFolder folder(file);
    ASSERT_EQ(folder.names(), "a b&c d -");
    const struct {
        Arrangement order;
        const char* names;
    } ROWS[] = {
        {{{.number = 3}, {.number = 1}, {.number = 0}, {.number = 2}}, "- b&c a d"},
        {{{.number = 2, .name = "x>\"y"}, {.number = 3, .name = "z"}}, "x>\"y z"},
        {{{.number = 0}, {.element = program("new")}, {.number = 1}, {.number = 2}, {.number = 3}}, "a new b&c d -"},
        {{{.element = "<Program/>", .name = "only"}}, "only"},
    };
    for (const auto& [order, names] : ROWS) {
        const auto back = folder.bank.arrange(order);
        ASSERT_TRUE(back) << names;
        EXPECT_EQ(folder.names(), names);
        const auto again = folder.bank.arrange(*back);
        ASSERT_TRUE(again) << names;
        EXPECT_EQ(folder.names(), "a b&c d -");
        EXPECT_TRUE(folder.bank.arrange(*again));
        EXPECT_EQ(folder.names(), names);
        ASSERT_TRUE(folder.bank.arrange(*back));
    }
    EXPECT_NE(folder.text().find("<!-- <Program> of b -->\n<Other/>" + program("b&amp;c")), std::string::npos);
    const std::string before = folder.text();
    for (const Arrangement& wrong :
         {Arrangement{}, {{.number = 4}}, {{.number = 0}, {.number = 0}}, {{.element = "<A/>"}}})
        EXPECT_FALSE(folder.bank.arrange(wrong));
    EXPECT_EQ(folder.text(), before);
}

TEST(BankFile, IsReadAnewWhenSomeoneElseWroteToIt)
{
    BankFolder folder(HEAD + program("a") + program("b") + END);
    folder.writeBank(HEAD + program("x") + program("y") + END);
    EXPECT_EQ(folder.bank.readProgram(1).getAttribute("name"), "y") << "of the same size and perhaps the same time";
    folder.writeBank(HEAD + program("longer") + program("y") + program("z") + END);
    EXPECT_EQ(folder.bank.readProgram(2).getAttribute("name"), "z");
    folder.writeBank(HEAD + program("y") + program("longer") + program("z") + END);
    EXPECT_TRUE(folder.bank.replaceProgram(1, program("b")));
    EXPECT_EQ(folder.names(), "y b z");
    folder.writeBank(HEAD);
    EXPECT_FALSE(folder.bank.readProgram(0).hasElement());
}

TEST(BankFile, AFullDiskLeavesTheOldBankOrTheNewOne)
{
    for (int call = 0;; ++call) {
        BankFolder folder(HEAD + program("a") + program("b") + END);
        const auto saved = saveWithFault(call, [&] { return folder.bank.replaceProgram(0, program("new", 3)); });
        if (!saved) break;
        EXPECT_EQ(folder.text(), HEAD + (*saved ? program("new", 3) : program("a")) + program("b") + END) << call;
        EXPECT_EQ(folder.contents(), "a.bnk") << "call " << call;
        EXPECT_EQ(folder.names(), *saved ? "new b" : "a b");
    }
}
