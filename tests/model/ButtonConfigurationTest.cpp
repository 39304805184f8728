#include "backend/bindings/functions/FunctionFactories.h"
#include "backend/model/KeyConfiguration.h"
#include "tests/stage/Stage.h"

using namespace Backend;
using Backend::ComputerInput::KeyConfiguration;

namespace
{
struct ButtonStage : Stage {
    std::unique_ptr<FunctionManagement::Function> make(const std::string& type)
    {
        return FunctionManagement::createFunction(type, *orv);
    }
    KeyConfiguration read(const std::string& entries)
    {
        return KeyConfiguration::fromXml(rootOf("<Key>" + entries + "</Key>"), [&](const XmlElement& element) {
            return FunctionManagement::createFunctionFromXml(element, *orv);
        });
    }
};

/// The entries as they are written.
std::string print(const KeyConfiguration& key)
{
    const std::string text = flat(writtenBy([&](std::ostream& out) { key.writeXml(out, 0); }));
    const auto begin = text.find('>') + 1;
    return text.substr(begin, text.rfind("</Key>") - begin);
}

const std::string RESET = "<Down><ResetOrv/></Down>";
}  // namespace

TEST(ButtonConfiguration, CopiesItsFunctionsAndSetsASlotOfAnEntryOrAddsOneBehindTheLast)
{
    ButtonStage stage;
    KeyConfiguration key = stage.read("<Function>" + RESET + "</Function><Function/>");
    const std::string before = print(key);
    KeyConfiguration copy(key);
    EXPECT_NE(copy.getEntries()[0].downFunction, key.getEntries()[0].downFunction);
    copy.setDownFunction(stage.make("ShowSaveDialog"), 0);
    copy.setUpFunction(stage.make("ShowProgramMenu"), 2);
    copy.setDownFunction(stage.make("ResetOrv"), 5);
    EXPECT_EQ(print(key), before);

    ASSERT_EQ(copy.getEntries().size(), 3u);
    EXPECT_EQ(copy.getDownFunctionType(0), "ShowSaveDialog");
    EXPECT_EQ(copy.getUpFunctionType(2), "ShowProgramMenu");
    EXPECT_EQ(copy.getDownFunctionType(2), "NoFunction");
    EXPECT_EQ(copy.getUpFunctionType(9), "NoFunction");
    EXPECT_TRUE(copy.isUsed(0) && copy.isUsed(2));
    EXPECT_FALSE(copy.isUsed(1) || copy.isUsed(3));
    copy.addEntry(copy.getEntries()[0]);
    for (const KeyConfiguration& other : {copy, stage.read("<Function keepSending='true'/>")}) {
        key = other;
        EXPECT_EQ(print(key), print(other));
    }
}

TEST(ButtonConfiguration, IsEmptyWhenNothingWouldHappenAndEqualToAnotherThatDoesTheSame)
{
    ButtonStage stage;
    const std::string up = "<Function><Up><ResetOrv/></Up></Function>";
    const std::string nothing = "<Function><Down><NoFunction/></Down></Function>";
    const struct {
        std::string one, other;
        bool equal;
    } rows[] = {{"", nothing, true},
                {nothing + nothing, nothing, true},
                {up, "<Function><Down><NoFunction/></Down><Up><ResetOrv/></Up></Function>", true},
                {up, "<Function>" + RESET + "</Function>", false},
                {up, "<Function keepSending='true'><Up><ResetOrv/></Up></Function>", false},
                {up, up + "<Function/>", false},
                {up, "", false}};
    for (const auto& [one, other, equal] : rows) {
        EXPECT_EQ(stage.read(one) == stage.read(other), equal) << one << " and " << other;
        EXPECT_EQ(stage.read(other) == stage.read(one), equal) << one << " and " << other;
    }
    EXPECT_TRUE(stage.read(nothing).isEmpty());
}
