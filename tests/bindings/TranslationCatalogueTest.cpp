// Every translation as it stands in files and in pickers.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <sstream>

#include "backend/bindings/functions/HelpTexts.h"
#include "backend/bindings/translations/TranslationEnumerator.h"
#include "backend/bindings/translations/TranslationFactories.h"
#include "backend/bindings/translations/Translations.h"
#include "backend/xml/XmlDocument.h"

using namespace Backend;
using namespace Backend::MidiInput;
using namespace Backend::MidiInput::TranslationManagement;

namespace
{
/// A line of the catalogue's file.
struct Row {
    std::string displayName, typeName;
    std::string attributes;  ///< of one that was just made, each after a blank
    std::string flags;       ///< what a picker offers, in the order of the settings interface
};

const std::vector<Row>& rows()
{
    static const std::vector<Row> all = [] {
        std::vector<Row> read;
        std::ifstream file(ORVANE_BINDINGS "/translations.txt");
        for (std::string line; std::getline(file, line);) {
            if (line.starts_with('#')) continue;
            const auto type = line.find(" | "), attributes = line.find(" |", type + 1);
            const auto flags = line.find(" |", attributes + 1);
            read.push_back({line.substr(0, type), line.substr(type + 3, attributes - type - 3),
                            line.substr(attributes + 2, flags - attributes - 2),
                            line.substr(std::min(flags + 3, line.size()))});
        }
        return read;
    }();
    return all;
}

/// What a picker would offer, "" for a family without flags.
template <class Type>
std::string flagsOf(const Type& translation)
{
    const auto letters = [](std::initializer_list<bool> flags) {
        std::string text;
        for (const bool flag : flags) text += flag ? 'y' : 'n';
        return text;
    };
    std::string text;
    if constexpr (requires { translation.allowArrows(); })
        return letters(
            {translation.allowArrows(), translation.allowSelected(), translation.hasValue(), translation.allowAll()});
    if constexpr (requires { translation.hasSelect(); })
        text = letters({translation.hasSelect(), translation.hasValue()}) + " " +
               letters({translation.allowUpDown(), translation.allowSelected(), translation.allowSpecific(),
                        translation.allowAll()});
    if constexpr (requires { translation.allowUseD1(); })
        text += " " + letters({translation.allowUseD1(), translation.allowUseD2(), translation.allowD1Relative(),
                               translation.allowD2Relative()});
    return text;
}

std::string print(const Translation& translation)
{
    std::ostringstream out;
    translation.writeXml(out, 0);
    return translation.getCondition().toXmlString() + " " + out.str();
}

std::unique_ptr<Translation> read(const std::string& inside, const std::string& condition = "Off")
{
    const std::string text = "<Translation condition=\"" + condition + "\">" + inside + "</Translation>";
    return createTranslationFromXml(XmlDocument(text, XmlDocument::Source::text).getRoot());
}

/// The element with each attribute set to the first of some words that is read back as it stands.
std::string withOtherAttributes(std::string element)
{
    for (auto quote = element.find("=\""); quote != std::string::npos; quote = element.find("=\"", quote + 1)) {
        const std::string before = element.substr(0, quote + 2);
        const std::string behind = element.substr(element.find('"', quote + 2));
        const auto isOther = [&](const char* word) {
            const std::string other = before + word + behind;
            return other != element && print(*read(other)) == "Off " + other;
        };
        constexpr std::array WORDS{"off", "D1 +5", "type2", "17", "3,4"};
        const auto* word = std::ranges::find_if(WORDS, isOther);
        if (word != WORDS.end()) element = before + *word + behind;
        EXPECT_NE(word, WORDS.end()) << "what else can it be? " << element;
    }
    return element;
}

void expectItsRow(const Translation& plain, const std::string& flags)
{
    const std::string type(plain.getType());
    const auto row = std::ranges::find(rows(), type, &Row::typeName);
    ASSERT_NE(row, rows().end());
    const std::string element = "<" + type + row->attributes + "/>\n";
    EXPECT_EQ(print(plain), "Off " + element);
    EXPECT_EQ(print(*createTranslation(type)), "Off " + element);
    EXPECT_EQ(print(*read("<" + type + "/>")), "Off " + element);
    EXPECT_EQ(flags, row->flags);
    EXPECT_EQ(plain.isPassThrough(), type == UNCHANGED);
    EXPECT_FALSE(helpText(plain.getHelpId()).empty());

    const std::string other = withOtherAttributes(element);
    const auto made = read(other, "D2 ne 1");
    EXPECT_EQ(print(*made), "D2 ne 1 " + other);
    EXPECT_EQ(print(*made->clone()), "D2 ne 1 " + other);
}

class Picker final : public TranslationEnumerator
{
public:
    void addTranslation(const TranslationInfo& translation) override { offered.push_back(translation); }
    std::vector<TranslationInfo> offered;
};

/// The same for every class, whatever its family.
template <class Type>
class EveryTranslation : public testing::Test
{
};

template <class List>
struct GTestTypes;
template <class... Types>
struct GTestTypes<TypeList<Types...>> {
    using Type = testing::Types<Types...>;
};
TYPED_TEST_SUITE(EveryTranslation, GTestTypes<AllTranslations>::Type);
}  // namespace

TEST(TranslationCatalogue, OffersItsTranslationsInOrderUnderTheirNames)
{
    Picker picker;
    enumerateTranslations(picker);
    ASSERT_EQ(picker.offered.size(), rows().size());
    for (std::size_t i = 0; i < rows().size(); ++i) {
        EXPECT_EQ(picker.offered[i].displayName, rows()[i].displayName);
        EXPECT_EQ(picker.offered[i].typeName, rows()[i].typeName);
    }
}

TEST(TranslationCatalogue, MakesNothingOfNamesItDoesNotKnow)
{
    for (const std::string unknown :
         {"Nonsense", "ShowCC", "ProgramChange", "MidiEndOfSysEx", "NoFunction", "unchanged"}) {
        EXPECT_FALSE(createTranslation(unknown)) << unknown;
        EXPECT_FALSE(read("<" + unknown + "/><Unchanged/>")) << unknown << ": only the first child is read";
    }
    EXPECT_FALSE(createTranslation(""));
    EXPECT_FALSE(read("<!-- none -->"));
    EXPECT_EQ(read("<!-- one --><ResetOrv/><Unchanged/>", "D1 ge 64 x")->getCondition().toXmlString(), "D1 ge 64");
}

TYPED_TEST(EveryTranslation, HasItsDefaultsAndReadsBackWhatItWritesAndSurvivesAClone)
{
    expectItsRow(TypeParam(), flagsOf(TypeParam()));
}

TEST(TranslationCatalogue, PassesThroughOnlyWhatNothingChangesOrHoldsBack)
{
    EXPECT_TRUE(read("<Unchanged/>")->isPassThrough());
    EXPECT_TRUE(read(R"(<Unchanged D1="D1" D2="D2" channel="default"/>)")->isPassThrough());
    EXPECT_FALSE(read("<Unchanged/>", "D1 ge 0")->isPassThrough());
    for (const char* change : {"zone='0'", "output='1'", "channel='unchanged'", "D1='D2'", "D2='D2 +0'"})
        EXPECT_FALSE(read("<Unchanged " + std::string(change) + "/>")->isPassThrough()) << change;
}

TEST(TranslationCatalogue, GivesVisitorsItsClassAndItsFamily)
{
    struct Family final : ChangeBooleanSettingsType::Visitor {
        void visit(Translations::ChangeOscPlaying&) override { seen = "playing"; }
        void visit(Translations::ChangeLayerMute&) override { seen = "mute"; }
        void visit(Translations::ChangeLayerMono&) override { seen = "mono"; }
        void visit(Translations::ChangeLayerSolo&) override { seen = "solo"; }
        std::string seen;
    } family;
    Translations::ChangeLayerMono mono;
    static_cast<ChangeBooleanSettingsType&>(mono).accept(family);
    EXPECT_EQ(family.seen, "mono");
}

TEST(TranslationCatalogue, SpansTheNotesThatItCanPlayInAZone)
{
    const auto span = [](const std::string& translation, const char* event) {
        const auto found = read(translation)->getNoteSpan({-1, -1, MidiEngine::MidiMessage(event)});
        if (!found.isPlayed()) return std::string("none");
        return std::to_string(found.zone) + " " + std::to_string(found.lowNote.getNumber()) + " " +
               std::to_string(found.highNote.getNumber());
    };
    const std::string unchanged = "<Unchanged zone='2' D1='";
    EXPECT_EQ(span(unchanged + "D1'/>", "Note On,60"), "2 60 60");
    EXPECT_EQ(span(unchanged + "D1 -12'/>", "Note On,60"), "2 48 48");
    EXPECT_EQ(span(unchanged + "D1 +100'/>", "Note On,60"), "2 127 127");
    EXPECT_EQ(span(unchanged + "48'/>", "Note On,60"), "2 48 48");
    EXPECT_EQ(span(unchanged + "D2 -100'/>", "Note On,60"), "2 0 27") << "any velocity";
    EXPECT_EQ(span("<Unchanged/>", "Note On,60"), "none") << "in no zone";
    EXPECT_EQ(span(unchanged + "D1'/>", "Note Off,60"), "none") << "plays no note on";
    EXPECT_EQ(span("<MidiNoteOff zone='2'/>", "Note On,60"), "none");
    EXPECT_EQ(span("<MidiNoteOn zone='0'/>", "Controller Change,64"), "0 64 64");
    EXPECT_EQ(span("<MidiNoteOn zone='0'/>", "Pitch Bend"), "0 0 127") << "any position";
    EXPECT_EQ(span("<ShowHelp/>", "Note On,60"), "none");
}
