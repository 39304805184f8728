#include <limits>

#include "backend/values/MidiTranslationCondition.h"
#include "backend/values/MidiTranslationValue.h"
#include "tests/values/ValueTesting.h"

using Backend::MidiEngine::MessageType;
using Backend::MidiEngine::MidiMessage;
using Backend::MidiEngine::OrvMidiMessage;

namespace
{
MidiMessage noteOn(int d1, int d2) { return MidiMessage(MessageType::noteOn, d1, d2); }

RelativeFixedValue valueOf(std::string_view text, int d1, int d2)
{
    return MidiTranslationValue::fromXmlString(text).getValue(noteOn(d1, d2));
}
}  // namespace

TEST(MidiTranslationCondition, HasThreeTokens)
{
    using Operand = MidiTranslationCondition::Operand;
    using Comparison = MidiTranslationCondition::Comparison;
    expectRows<MidiTranslationCondition>({{"Off", {Operand::off, Comparison::eq, 0}, "Off"},
                                          {"", {Operand::off, Comparison::eq, 0}, "Off"},
                                          {"off ne 3", {Operand::off, Comparison::ne, 3}, "Off"},
                                          {"D1 lt 1", {Operand::d1, Comparison::lt, 1}, "D1 lt 1"},
                                          {"D1 gt -2", {Operand::d1, Comparison::gt, -2}, "D1 gt -2"},
                                          {"D2 le 3", {Operand::d2, Comparison::le, 3}, "D2 le 3"},
                                          {"D1 ge 64", {Operand::d1, Comparison::ge, 64}, "D1 ge 64"},
                                          {"D2 ne 5 6", {Operand::d2, Comparison::ne, 5}, "D2 ne 5"},
                                          {"D2 xx 5", {Operand::d2, Comparison::eq, 5}, "D2 eq 5"},
                                          {"D2", {Operand::d2, Comparison::eq, 0}, "D2 eq 0"},
                                          {"D1  ge", {Operand::d1, Comparison::eq, 0}, "D1 eq 0"}});
    EXPECT_EQ(MidiTranslationCondition{}.comparison, Comparison::gt);
}

TEST(MidiTranslationCondition, ComparesADataByteAsASignedOne)
{
    struct Truth {
        const char* text;
        bool below, equal, above;  // for 63, 64 and 65 in D1
    };
    for (const auto& [text, below, equal, above] : {Truth{"Off", true, true, true},
                                                    {"D1 lt 64", true, false, false},
                                                    {"D1 gt 64", false, false, true},
                                                    {"D1 le 64", true, true, false},
                                                    {"D1 ge 64", false, true, true},
                                                    {"D1 eq 64", false, true, false},
                                                    {"D1 ne 64", true, false, true}}) {
        const auto condition = MidiTranslationCondition::fromXmlString(text);
        EXPECT_EQ(condition.isTrue(noteOn(63, 0)), below) << text;
        EXPECT_EQ(condition.isTrue(noteOn(64, 0)), equal) << text;
        EXPECT_EQ(condition.isTrue(noteOn(65, 0)), above) << text;
    }
    EXPECT_TRUE(MidiTranslationCondition::fromXmlString("D2 lt 0").isTrue(noteOn(0, 200)));
    EXPECT_TRUE(MidiTranslationCondition::fromXmlString("D2 eq 7").isTrue(OrvMidiMessage(noteOn(0, 7).getWparam())));
    const MidiTranslationCondition unknown{MidiTranslationCondition::Operand::d1,
                                           static_cast<MidiTranslationCondition::Comparison>(9)};
    EXPECT_FALSE(unknown.isTrue(noteOn(0, 0)));
}

TEST(MidiTranslationValue, IsAWordADataByteOrANumber)
{
    using Kind = MidiTranslationValue::Kind;
    expectRows<MidiTranslationValue>({{"up", {Kind::up}, "up"},
                                      {" down ", {Kind::down}, "down"},
                                      {"selected 4", {Kind::selected}, "selected"},
                                      {"D1", {Kind::useD1}, "D1"},
                                      {"D2 ", {}, "D2"},
                                      {"D1 +5", {Kind::d1Relative, {false, 5}}, "D1 +5"},
                                      {"D1 5", {Kind::d1Relative, {false, 5}}, "D1 +5"},
                                      {"D1 x", {Kind::d1Relative, {false, 0}}, "D1 +0"},
                                      {"D2 -12", {Kind::d2Relative, {false, -12}}, "D2 -12"},
                                      {"D2  -12", {Kind::useD2}, "D2"},
                                      {"", {Kind::specific, {true, 0}}, ""},
                                      {"+3", {Kind::specific, {true, 3}}, "+3"},
                                      {"64 5", {Kind::specific, {false, 64}}, "64"},
                                      {"all", {Kind::specific, {false, 0}}, "0"},
                                      {"d1", {Kind::specific, {false, 0}}, "0"}});
    EXPECT_EQ((MidiTranslationValue{Kind::all, {true, 3}}).toXmlString(), "+3");
}

TEST(MidiTranslationValue, GivesANumber)
{
    EXPECT_EQ(valueOf("D1", 60, 100), (RelativeFixedValue{false, 60}));
    EXPECT_EQ(valueOf("D2", 60, 100), (RelativeFixedValue{false, 100}));
    EXPECT_EQ(valueOf("D1 +5", 60, 100), (RelativeFixedValue{false, 65}));
    EXPECT_EQ(valueOf("D2 -12", 60, 100), (RelativeFixedValue{false, 88}));
    EXPECT_EQ(valueOf("D2", 60, 200), (RelativeFixedValue{false, -56}));
    EXPECT_EQ(valueOf("+3", 60, 100), (RelativeFixedValue{true, 3}));
    EXPECT_EQ(valueOf("3", 60, 100), (RelativeFixedValue{false, 3}));
    EXPECT_EQ(valueOf("selected", 60, 100), (RelativeFixedValue{true, 0}));
    EXPECT_EQ(valueOf("D2 +2147483647", 60, 100).value, std::numeric_limits<std::int32_t>::max());
}

TEST(MidiTranslationValue, GivesASelection)
{
    using Kind = SelectType::Kind;
    const auto selectionOf = [](std::string_view text) {
        return MidiTranslationValue::fromXmlString(text).getSelectType(OrvMidiMessage(noteOn(60, 100).getWparam()));
    };
    EXPECT_EQ(selectionOf("up"), (SelectType{Kind::up}));
    EXPECT_EQ(selectionOf("down"), (SelectType{Kind::down}));
    EXPECT_EQ(selectionOf("selected"), (SelectType{Kind::selected}));
    EXPECT_EQ(selectionOf("D1 -60"), (SelectType{Kind::specific, 0}));
    EXPECT_EQ(selectionOf("+3"), (SelectType{Kind::specific, 3}));
    EXPECT_EQ((MidiTranslationValue{MidiTranslationValue::Kind::all, {}}).getSelectType(noteOn(60, 100)),
              (SelectType{Kind::all}));
}
