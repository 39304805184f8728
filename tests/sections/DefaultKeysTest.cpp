#include "backend/sections/computerinput/DefaultKeys.h"

#include <gtest/gtest.h>

#include "tests/sections/KeyStage.h"

using namespace Backend;
using namespace Backend::ComputerInput;

namespace
{
std::string contentOf(const std::string& file)
{
    std::ifstream in(ORVANE_CONTENT "/Default/" + file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}
}  // namespace

TEST(DefaultKeys, AreSeventyFiveOfWhichEachDoesWhatItsElementSays)
{
    KeyStage stage;
    const XmlDocument document(defaultKeysXml(0), XmlDocument::Source::text);
    ASSERT_TRUE(document.getRoot().hasElement());
    EXPECT_EQ(document.getRoot().getChildCount(), 75);
    stage.keys().loadSection(document.getRoot());
    EXPECT_EQ(stage.keys().getKeys().size(), 75u) << "no key stands twice";

    // Nothing got lost on the way: every Down and Up of the text became a function.
    std::size_t functions = 0;
    std::string unbound;
    const auto iterator = stage.keys().getKeys().createIterator();
    while (const KeyConfiguration* key = iterator->next()) {
        EXPECT_TRUE(key->global);
        if (key->isEmpty()) unbound += key->key.toXmlString();
        key->forEachFunction([&](const auto&) { ++functions; });
    }
    EXPECT_EQ(unbound, "1");
    EXPECT_EQ(functions, 2u * 37 + 37 + 4) << "two a note, one each of the others, and four have one for release";
}

TEST(DefaultKeys, AreWhatTheFactoryContentHolds)
{
    EXPECT_EQ(contentOf("Computer Input Presets/000 - Default.pst"),
              "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n\n" + defaultKeysXml(0));
    const std::string bank = contentOf("Banks/Default Bank.bnk");
    const auto section = bank.find("\t<ComputerInput");
    ASSERT_NE(section, std::string::npos);
    const std::string expected = defaultKeysXml(1);
    EXPECT_EQ(bank.substr(section, expected.size()), expected);
}
