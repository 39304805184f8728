// Every function as it stands in files and in pickers.

#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <sstream>

#include "backend/bindings/functions/FunctionEnumerator.h"
#include "backend/bindings/functions/FunctionFactories.h"
#include "backend/bindings/functions/Functions.h"
#include "backend/bindings/functions/HelpTexts.h"
#include "backend/xml/XmlDocument.h"
#include "tests/stage/Stage.h"

using namespace Backend;
using namespace Backend::FunctionManagement;

namespace
{
std::string print(const Function& function)
{
    std::ostringstream out;
    function.writeXml(out, 1);
    return out.str();
}

/// What stands in an element behind its type.
std::string attributesOf(const Function& function)
{
    const std::string text = print(function);
    const auto type = text.find(function.getType());
    return text.substr(type + function.getType().size(), text.find("/>") - type - function.getType().size());
}

std::unique_ptr<Function> read(const std::string& text, OrvIF& orv)
{
    return createFunctionFromXml(XmlDocument(text, XmlDocument::Source::text).getRoot(), orv);
}

/// Writes the catalogue as its file has it.
class Picker final : public FunctionEnumerator
{
public:
    explicit Picker(OrvIF& backend) : orv(backend) {}
    void addFunction(const FunctionInfo& function) override
    {
        const std::string type(function.typeName);
        if (type == NO_FUNCTION) return;
        const auto fromFile = read("<" + type + "/>", orv);
        const auto picked = createFunction(type, orv);
        ASSERT_TRUE(fromFile && picked) << type;
        catalogue += std::string(function.displayName) + " | " + type + " |" + attributesOf(*fromFile) + " |" +
                     attributesOf(*picked) + "\n";
    }
    std::string catalogue;

private:
    OrvIF& orv;
};
}  // namespace

TEST(FunctionCatalogue, IsTheOneOfFilesAndPickers)
{
    Stage stage;
    Picker picker(*stage.orv);
    enumerateFunctions(picker);
    std::ifstream file(ORVANE_BINDINGS "/functions.txt");
    std::string head;
    std::getline(file, head);
    EXPECT_EQ(picker.catalogue, std::string(std::istreambuf_iterator<char>(file), {}));
    EXPECT_TRUE(createFunction("MidiEndOfSysEx", *stage.orv)) << "which is not offered";
    for (const char* unknown : {"Nonsense", "NoFunction", "", "midiNoteOn", "MidiProgramChange"}) {
        EXPECT_FALSE(createFunction(unknown, *stage.orv)) << unknown;
        EXPECT_FALSE(read("<" + std::string(unknown) + "/>", *stage.orv)) << unknown;
    }
}

/// The same for every class, whatever its family.
template <class Type>
class EveryFunction : public testing::Test
{
};

template <class List>
struct GTestTypes;
template <class... Types>
struct GTestTypes<TypeList<Types...>> {
    using Type = testing::Types<Types...>;
};
TYPED_TEST_SUITE(EveryFunction, GTestTypes<AllFunctions>::Type);

TYPED_TEST(EveryFunction, ReadsBackWhatItWritesSurvivesACloneAndDiffersByEachParameter)
{
    Stage stage;
    const std::string type(TypeParam::info.typeName);
    const TypeParam plain(*stage.orv);
    EXPECT_TRUE(plain.equals(plain));
    EXPECT_TRUE(plain.clone()->equals(plain));
    EXPECT_FALSE(plain.equals(*createFunction(type == "ResetOrv" ? "ShowHelp" : "ResetOrv", *stage.orv)));
    EXPECT_FALSE(helpText(plain.getHelpId()).empty());

    const std::string printed = print(plain);
    for (auto quote = printed.find("=\""); quote != std::string::npos; quote = printed.find("=\"", quote + 1)) {
        const auto end = printed.find('"', quote + 2);
        bool matters = false;
        for (const char* other : {"off", "+5", "3,4", "type2", "D5"}) {
            const std::string text = printed.substr(0, quote + 2) + other + printed.substr(end);
            const auto changed = read(text, *stage.orv);
            matters = matters || !changed->equals(plain);
            EXPECT_TRUE(read(print(*changed), *stage.orv)->equals(*changed)) << text;
            EXPECT_TRUE(changed->clone()->equals(*changed)) << text;
        }
        EXPECT_TRUE(matters) << printed.substr(0, end);
    }
}

TEST(FunctionCatalogue, ExplainsEveryFunctionBySentencesOfItsOwn)
{
    std::set<std::string> sentences;
    AllFunctions::forEach([&]<class Type>(std::type_identity<Type>) {
        EXPECT_TRUE(sentences.insert(helpText(Type::info.helpId)).second) << Type::info.typeName;
    });
    EXPECT_EQ(helpText(HelpId::noFunction), "No function.");
    EXPECT_EQ(helpText(HelpId::showHelp + 1), "Show the help.");
    EXPECT_EQ(helpText(HelpId::translateToNoteOn), "Change midi event type to note on (0x9c).");
    EXPECT_EQ(helpText(5349), "");
    EXPECT_EQ(helpText(5470), "");
}
