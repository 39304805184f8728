// Every function and every translation as it stands in files and in pickers.

#include "backend/bindings/functions/FunctionEnumerator.h"
#include "backend/bindings/functions/FunctionFactories.h"
#include "backend/bindings/functions/Functions.h"
#include "backend/bindings/functions/HelpTexts.h"
#include "backend/bindings/translations/TranslationEnumerator.h"
#include "backend/bindings/translations/TranslationFactories.h"
#include "backend/bindings/translations/Translations.h"
#include "tests/stage/Stage.h"

using namespace Backend;
using namespace Backend::FunctionManagement;
using namespace Backend::MidiInput;
using namespace Backend::MidiInput::TranslationManagement;

namespace
{
/// What pickers offer.
struct Offer final : FunctionEnumerator, TranslationEnumerator {
    Offer()
    {
        enumerateFunctions(*this);
        std::erase_if(functions, [](const auto& each) { return each.typeName == NO_FUNCTION; });
        enumerateTranslations(*this);
    }
    void addFunction(const FunctionInfo& function) override { functions.push_back(function); }
    void addTranslation(const TranslationInfo& translation) override { translations.push_back(translation); }

    std::vector<FunctionInfo> functions;
    std::vector<TranslationInfo> translations;
};

/// A catalogue's file, without the line at its head.
std::string catalogueOf(const std::string& name)
{
    const std::string text = fileText(ORVANE_BINDINGS "/" + name);
    return text.substr(text.find('\n') + 1);
}

template <class Item>
std::string print(const Item& item)
{
    return writtenBy([&](std::ostream& out) { item.writeXml(out, 0); });
}

/// With its condition.
std::string printAll(const Translation& translation)
{
    return translation.getCondition().toXmlString() + " " + print(translation);
}

/// What follows the type in an element.
template <class Item>
std::string attributesOf(const Item& item)
{
    const std::string text = print(item);
    const auto begin = text.find(item.getType()) + item.getType().size();
    return text.substr(begin, text.find("/>") - begin);
}

std::unique_ptr<Function> readFunction(const std::string& text, OrvIF& orv)
{
    return createFunctionFromXml(rootOf(text), orv);
}

std::unique_ptr<Translation> readTranslation(const std::string& inside, const std::string& condition = "Off")
{
    return createTranslationFromXml(
        rootOf("<Translation condition=\"" + condition + "\">" + inside + "</Translation>"));
}

/// What a picker would offer, in the order of the settings interface; "" for a family without flags.
template <class Type>
std::string flagsOf(const Type& translation)
{
    const auto letters = [](std::initializer_list<bool> flags) {
        return joined(
            flags, [](bool flag) { return flag ? "y" : "n"; }, "");
    };
    std::string text;
    if constexpr (requires { translation.allowArrows(); })
        return " " + letters({translation.allowArrows(), translation.allowSelected(), translation.hasValue(),
                              translation.allowAll()});
    if constexpr (requires { translation.hasSelect(); })
        text = " " + letters({translation.hasSelect(), translation.hasValue()}) + " " +
               letters({translation.allowUpDown(), translation.allowSelected(), translation.allowSpecific(),
                        translation.allowAll()});
    if constexpr (requires { translation.allowUseD1(); })
        text += " " + letters({translation.allowUseD1(), translation.allowUseD2(), translation.allowD1Relative(),
                               translation.allowD2Relative()});
    return text;
}

/// Calls `visit` for each attribute of an element with the text before its value and the text after that.
template <class Visit>
void forEachAttribute(std::string element, Visit visit)
{
    for (auto quote = element.find("=\""); quote != std::string::npos; quote = element.find("=\"", quote + 1))
        element = visit(element.substr(0, quote + 2), element.substr(element.find('"', quote + 2)));
}

// Not templates, as they would be compiled for each of the types.

void expectToReadBackAndDiffer(const Function& plain, OrvIF& orv)
{
    const std::string type(plain.getType());
    SCOPED_TRACE(type);
    EXPECT_TRUE(plain.equals(plain));
    EXPECT_TRUE(plain.clone()->equals(plain));
    EXPECT_FALSE(plain.equals(*createFunction(type == "ResetOrv" ? "ShowHelp" : "ResetOrv", orv)));
    EXPECT_FALSE(helpText(plain.getHelpId()).empty());
    forEachAttribute(print(plain), [&](const std::string& before, const std::string& after) {
        bool matters = false;
        for (const char* other : {"off", "+5", "3,4", "type2", "D5"}) {
            const auto changed = readFunction(before + other + after, orv);
            matters = matters || !changed->equals(plain);
            EXPECT_TRUE(readFunction(print(*changed), orv)->equals(*changed)) << before << other;
            EXPECT_TRUE(changed->clone()->equals(*changed)) << before << other;
        }
        EXPECT_TRUE(matters) << before;
        return print(plain);
    });
}

void expectToReadBackAndClone(const Translation& plain)
{
    const std::string type(plain.getType());
    SCOPED_TRACE(type);
    EXPECT_EQ(printAll(*readTranslation("<" + type + "/>")), printAll(plain));
    EXPECT_EQ(plain.isPassThrough(), type == UNCHANGED);
    EXPECT_FALSE(helpText(plain.getHelpId()).empty());

    // Each attribute becomes the first of some words that is read back as it stands.
    std::string element = print(plain);
    forEachAttribute(element, [&](const std::string& before, const std::string& after) {
        constexpr std::array WORDS{"off", "D1 +5", "type2", "17", "3,4"};
        const auto* word = std::ranges::find_if(WORDS, [&](const std::string& each) {
            const std::string other = before + each + after;
            return other != element && print(*readTranslation(other)) == other;
        });
        EXPECT_NE(word, WORDS.end()) << "what else can it be? " << element;
        return element = word == WORDS.end() ? element : before + *word + after;
    });
    const auto made = readTranslation(element, "D2 ne 1");
    EXPECT_EQ(printAll(*made), "D2 ne 1 " + element);
    EXPECT_EQ(printAll(*made->clone()), "D2 ne 1 " + element);
}
}  // namespace

TEST(FunctionCatalogue, IsTheOneOfFilesAndPickers)
{
    Stage stage;
    std::string catalogue;
    for (const FunctionInfo& info : Offer().functions) {
        const std::string type(info.typeName);
        const auto fromFile = readFunction("<" + type + "/>", *stage.orv);
        const auto picked = createFunction(type, *stage.orv);
        ASSERT_TRUE(fromFile && picked) << type;
        catalogue += std::string(info.displayName) + " | " + type + " |" + attributesOf(*fromFile) + " |" +
                     attributesOf(*picked) + "\n";
    }
    EXPECT_EQ(catalogue, catalogueOf("functions.txt"));
    EXPECT_TRUE(createFunction("MidiEndOfSysEx", *stage.orv)) << "which is not offered";
    for (const char* unknown : {"Nonsense", "NoFunction", "", "midiNoteOn", "MidiProgramChange"}) {
        EXPECT_FALSE(createFunction(unknown, *stage.orv)) << unknown;
        EXPECT_FALSE(readFunction("<" + std::string(unknown) + "/>", *stage.orv)) << unknown;
    }
}

TEST(FunctionCatalogue, IsOfFunctionsThatReadBackWhatTheyWriteAndDifferByEachParameter)
{
    Stage stage;
    std::set<std::string> sentences;
    const auto check = [&](const Function& function) {
        EXPECT_TRUE(sentences.insert(helpText(function.getHelpId())).second) << function.getType();
        expectToReadBackAndDiffer(function, *stage.orv);
    };
    check(Functions::NoFunction(*stage.orv));
    check(*createFunction("MidiEndOfSysEx", *stage.orv));
    for (const FunctionInfo& info : Offer().functions) check(*createFunction(info.typeName, *stage.orv));
    EXPECT_EQ(sentences.size(), AllFunctions::size);
    EXPECT_EQ(helpText(HelpId::noFunction), "No function.");
    EXPECT_EQ(helpText(HelpId::showHelp + 1), "Show the help.");
    EXPECT_EQ(helpText(HelpId::translateToNoteOn), "Change midi event type to note on (0x9c).");
    EXPECT_EQ(helpText(5349) + helpText(5470), "");
}

TEST(TranslationCatalogue, IsTheOneOfFilesAndPickers)
{
    const Offer offer;
    std::string catalogue;
    std::size_t place = 0;
    AllTranslations::forEach([&]<class Type>(std::type_identity<Type>) {
        const TranslationInfo& info = offer.translations.at(place++);
        const auto made = createTranslation(info.typeName);
        catalogue += std::string(info.displayName) + " | " + std::string(info.typeName) + " |" + attributesOf(*made) +
                     " |" + flagsOf(dynamic_cast<const Type&>(*made)) + "\n";
    });
    EXPECT_EQ(place, offer.translations.size());
    EXPECT_EQ(catalogue, catalogueOf("translations.txt"));
    for (const std::string unknown :
         {"Nonsense", "ShowCC", "ProgramChange", "MidiEndOfSysEx", "NoFunction", "unchanged"}) {
        EXPECT_FALSE(createTranslation(unknown)) << unknown;
        EXPECT_FALSE(readTranslation("<" + unknown + "/><Unchanged/>")) << unknown << ": only the first child is read";
    }
    EXPECT_FALSE(createTranslation(""));
    EXPECT_FALSE(readTranslation("<!-- none -->"));
    const auto second = readTranslation("<!-- one --><ResetOrv/><Unchanged/>", "D1 ge 64 x");
    EXPECT_EQ(second->getCondition().toXmlString(), "D1 ge 64");
}

TEST(TranslationCatalogue, IsOfTranslationsThatReadBackWhatTheyWriteAndSurviveAClone)
{
    for (const TranslationInfo& info : Offer().translations)
        expectToReadBackAndClone(*createTranslation(info.typeName));
}

TEST(TranslationCatalogue, PassesThroughOnlyWhatNothingChangesOrHoldsBack)
{
    EXPECT_TRUE(readTranslation("<Unchanged/>")->isPassThrough());
    EXPECT_TRUE(readTranslation(R"(<Unchanged D1="D1" D2="D2" channel="default"/>)")->isPassThrough());
    EXPECT_FALSE(readTranslation("<Unchanged/>", "D1 ge 0")->isPassThrough());
    for (const char* change : {"zone='0'", "output='1'", "channel='unchanged'", "D1='D2'", "D2='D2 +0'"})
        EXPECT_FALSE(readTranslation("<Unchanged " + std::string(change) + "/>")->isPassThrough()) << change;
}

TEST(TranslationCatalogue, GivesVisitorsItsClassAndItsFamily)
{
    struct Family final : TranslationManagement::ChangeBooleanSettingsType::Visitor {
        void visit(Translations::ChangeOscPlaying&) override { seen = "playing"; }
        void visit(Translations::ChangeLayerMute&) override { seen = "mute"; }
        void visit(Translations::ChangeLayerMono&) override { seen = "mono"; }
        void visit(Translations::ChangeLayerSolo&) override { seen = "solo"; }
        std::string seen;
    } family;
    Translations::ChangeLayerMono mono;
    static_cast<TranslationManagement::ChangeBooleanSettingsType&>(mono).accept(family);
    EXPECT_EQ(family.seen, "mono");
}

TEST(TranslationCatalogue, SpansTheNotesThatItCanPlayInAZone)
{
    const std::string unchanged = "<Unchanged zone='2' D1='";
    const struct {
        std::string translation;
        const char* event;
        const char* span;
    } rows[] = {
        {unchanged + "D1'/>", "Note On,60", "2 60 60"},
        {unchanged + "D1 -12'/>", "Note On,60", "2 48 48"},
        {unchanged + "D1 +100'/>", "Note On,60", "2 127 127"},
        {unchanged + "48'/>", "Note On,60", "2 48 48"},
        {unchanged + "D2 -100'/>", "Note On,60", "2 0 27"},  // any velocity
        {"<Unchanged/>", "Note On,60", "none"},              // in no zone
        {unchanged + "D1'/>", "Note Off,60", "none"},        // plays no note on
        {"<MidiNoteOff zone='2'/>", "Note On,60", "none"},
        {"<MidiNoteOn zone='0'/>", "Controller Change,64", "0 64 64"},
        {"<MidiNoteOn zone='0'/>", "Pitch Bend", "0 0 127"},  // any position
        {"<ShowHelp/>", "Note On,60", "none"},
    };
    for (const auto& [translation, event, span] : rows) {
        const auto found = readTranslation(translation)->getNoteSpan({-1, -1, MidiEngine::MidiMessage(event)});
        const std::string text = std::to_string(found.zone) + " " + std::to_string(found.lowNote.getNumber()) + " " +
                                 std::to_string(found.highNote.getNumber());
        EXPECT_EQ(found.isPlayed() ? text : "none", span) << translation << " " << event;
    }
}
