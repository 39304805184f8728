#include "backend/model/ButtonConfiguration.h"

#include <gtest/gtest.h>

#include <sstream>

#include "backend/xml/XmlDocument.h"
#include "backend/xml/XmlWriter.h"

using namespace Backend;
using FunctionManagement::Function;

namespace
{
class Named final : public Function
{
public:
    explicit Named(std::string theName) : name(std::move(theName)) { ++living; }
    Named(const Named& other) : Function(other), name(other.name) { ++living; }
    Named& operator=(const Named&) = delete;
    ~Named() override { --living; }

    bool equals(const Function& other) const override { return getType() == other.getType(); }
    std::unique_ptr<Function> clone() const override { return std::make_unique<Named>(*this); }
    void execute() override {}
    std::string_view getType() const override { return name; }
    void accept(FunctionManagement::FunctionVisitor&) override {}
    int getHelpId() const override { return 0; }
    void writeXml(std::ostream& out, int indent) const override
    {
        out << std::string(static_cast<std::size_t>(indent), '\t') << xmlOpenTag(name) << xmlCloseEmpty() << '\n';
    }

    static inline int living = 0;

private:
    std::string name;
};

/// Knows every function but "Nonsense".
std::unique_ptr<Function> createNamed(const XmlElement& element)
{
    return element.getTagName() == "Nonsense" ? nullptr : std::make_unique<Named>(element.getTagName());
}

class Button final : public ButtonConfiguration
{
public:
    explicit Button(std::string_view text)
    {
        readEntries(XmlDocument(text, XmlDocument::Source::text).getRoot(), createNamed);
    }

    void writeXml(std::ostream& out, int indent) const override { writeEntries(out, indent); }
    bool isSame(const Button& other) const { return hasSameEntries(other); }

    std::string print(int indent) const
    {
        std::ostringstream out;
        writeXml(out, indent);
        return out.str();
    }
};
}  // namespace

TEST(ButtonConfiguration, WritesItsEntriesTwoLevelsDeeperDownBeforeUp)
{
    const Button button(R"(<Key><Function keepSending="yes"><Up><Off/></Up><Down><On/></Down></Function>)"
                        R"(<Function/><Function><Up><Stop/></Up></Function></Key>)");
    EXPECT_EQ(button.print(0),
              "\t\t<Function keepSending=\"true\">\n"
              "\t\t\t<Down>\n"
              "\t\t\t\t<On/>\n"
              "\t\t\t</Down>\n"
              "\t\t\t<Up>\n"
              "\t\t\t\t<Off/>\n"
              "\t\t\t</Up>\n"
              "\t\t</Function>\n"
              "\t\t<Function keepSending=\"false\">\n"
              "\t\t</Function>\n"
              "\t\t<Function keepSending=\"false\">\n"
              "\t\t\t<Up>\n"
              "\t\t\t\t<Stop/>\n"
              "\t\t\t</Up>\n"
              "\t\t</Function>\n");
    EXPECT_TRUE(button.print(3).starts_with("\t\t\t\t\t<Function "));
    EXPECT_EQ(Button("<Key>" + button.print(0) + "</Key>").print(0), button.print(0));
}

TEST(ButtonConfiguration, FillsEachSlotOnceFromItsFirstElement)
{
    const auto read = [](const std::string& slots) {
        std::string line;
        for (const char letter : Button("<Key><Function>" + slots + "</Function></Key>").print(0))
            if (letter != '\t' && letter != '\n') line += letter;
        return line;
    };
    const std::string none = R"(<Function keepSending="false"></Function>)";
    const std::string one = R"(<Function keepSending="false"><Down><A/></Down></Function>)";
    EXPECT_EQ(read("<Down><!-- first --><A/><B/></Down><Down><C/></Down>"), one);
    EXPECT_EQ(read("<Down/><Down><Nonsense/></Down><Down><A/></Down><Down><B/></Down>"), one);
    EXPECT_EQ(read("<Down><Nonsense/><B/></Down>"), none);
    EXPECT_EQ(read("<down><A/></down><Left><A/></Left>text<!-- c -->"), none);
    EXPECT_TRUE(Button("<Key/>").getEntries().empty());
    EXPECT_TRUE(Button("no document").getEntries().empty());
}

TEST(ButtonConfiguration, OwnsItsFunctionsAndCopiesThemAsClones)
{
    {
        Button button("<Key><Function><Down><A/></Down><Up><B/></Up></Function></Key>");
        Button copy(button);
        EXPECT_EQ(Named::living, 4);
        EXPECT_NE(copy.getEntries()[0].downFunction, button.getEntries()[0].downFunction);
        copy.addEntry(copy.getEntries()[0]);
        button = copy;
        EXPECT_EQ(Named::living, 8);
        EXPECT_EQ(button.print(0), copy.print(0));
    }
    EXPECT_EQ(Named::living, 0);
}

TEST(ButtonConfiguration, SetsASlotOfAnEntryOrAddsOneBehindTheLast)
{
    Button button("<Key><Function><Down><A/></Down></Function><Function/></Key>");
    button.setDownFunction(std::make_unique<Named>("B"), 0);
    button.setUpFunction(std::make_unique<Named>("C"), 2);
    button.setDownFunction(std::make_unique<Named>("D"), 5);

    ASSERT_EQ(button.getEntries().size(), 3u);
    EXPECT_EQ(button.getDownFunctionType(0), "B");
    EXPECT_EQ(button.getUpFunctionType(2), "C");
    EXPECT_EQ(button.getDownFunctionType(2), "NoFunction");
    EXPECT_EQ(button.getUpFunctionType(9), "NoFunction");
    EXPECT_TRUE(button.isUsed(0) && button.isUsed(2));
    EXPECT_FALSE(button.isUsed(1) || button.isUsed(3));
}

TEST(ButtonConfiguration, IsEmptyWhenNothingWouldHappenAndEqualToAnotherThatDoesTheSame)
{
    const std::string nothing = "<Function><Down><NoFunction/></Down></Function>";
    const struct {
        std::string one, other;
        bool equal;
    } rows[] = {
        {"", nothing, true},
        {nothing + nothing, nothing, true},
        {"<Function><Up><A/></Up></Function>", "<Function><Down><NoFunction/></Down><Up><A/></Up></Function>", true},
        {"<Function><Up><A/></Up></Function>", "<Function><Down><A/></Down></Function>", false},
        {"<Function><Up><A/></Up></Function>", "<Function keepSending='true'><Up><A/></Up></Function>", false},
        {"<Function><Up><A/></Up></Function>", "<Function><Up><A/></Up></Function><Function/>", false},
        {"<Function><Up><A/></Up></Function>", "", false}};
    for (const auto& [one, other, equal] : rows) {
        const Button first("<Key>" + one + "</Key>");
        const Button second("<Key>" + other + "</Key>");
        EXPECT_EQ(first.isSame(second), equal) << one << " and " << other;
        EXPECT_EQ(second.isSame(first), equal) << one << " and " << other;
    }
    EXPECT_TRUE(Button("<Key>" + nothing + "</Key>").isEmpty());
}
