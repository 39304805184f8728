#include <limits>

#include "backend/values/MidiTranslationCondition.h"
#include "backend/values/MidiTranslationValue.h"
#include "tests/values/ValueTesting.h"

using Backend::MidiEngine::MessageType;
using Backend::MidiEngine::MidiMessage;
using Backend::MidiEngine::OrvMidiMessage;

namespace
{
MidiMessage plainNoteOn(int d1, int d2) { return MidiMessage(MessageType::noteOn, d1, d2); }
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
    const auto isTrue = [](const char* condition, int d1, int d2 = 0) {
        return MidiTranslationCondition::fromXmlString(condition).isTrue(plainNoteOn(d1, d2));
    };
    constexpr std::pair<const char*, const char*> rows[] = {
        {"Off", "yyy"},      {"D1 lt 64", "ynn"}, {"D1 gt 64", "nny"}, {"D1 le 64", "yyn"},
        {"D1 ge 64", "nyy"}, {"D1 eq 64", "nyn"}, {"D1 ne 64", "yny"}};
    for (const auto& [condition, truths] : rows)
        for (const int d1 : {63, 64, 65}) EXPECT_EQ(isTrue(condition, d1), truths[d1 - 63] == 'y') << condition << d1;
    EXPECT_TRUE(isTrue("D2 lt 0", 0, 200));
    EXPECT_TRUE(isTrue("D2 eq 7", 0, 7));
    const MidiTranslationCondition unknown{MidiTranslationCondition::Operand::d1,
                                           static_cast<MidiTranslationCondition::Comparison>(9)};
    EXPECT_FALSE(unknown.isTrue(plainNoteOn(0, 0)));
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

TEST(MidiTranslationValue, GivesANumberAndASelection)
{
    const struct {
        const char* text;
        int d2;
        RelativeFixedValue value;
    } rows[] = {{"D1", 100, {false, 60}},
                {"D2", 100, {false, 100}},
                {"D1 +5", 100, {false, 65}},
                {"D2 -12", 100, {false, 88}},
                {"D2", 200, {false, -56}},
                {"+3", 100, {true, 3}},
                {"3", 100, {false, 3}},
                {"selected", 100, {true, 0}},
                {"D2 +2147483647", 100, {false, std::numeric_limits<std::int32_t>::max()}}};
    for (const auto& [text, d2, value] : rows)
        EXPECT_EQ(MidiTranslationValue::fromXmlString(text).getValue(plainNoteOn(60, d2)), value) << text;

    using Kind = SelectType::Kind;
    const OrvMidiMessage event(plainNoteOn(60, 100).getWparam());
    const std::pair<const char*, SelectType> selections[] = {{"up", {Kind::up}},
                                                             {"down", {Kind::down}},
                                                             {"selected", {Kind::selected}},
                                                             {"D1 -60", {Kind::specific, 0}},
                                                             {"+3", {Kind::specific, 3}}};
    for (const auto& [text, selection] : selections)
        EXPECT_EQ(MidiTranslationValue::fromXmlString(text).getSelectType(event), selection) << text;
    EXPECT_EQ((MidiTranslationValue{MidiTranslationValue::Kind::all, {}}).getSelectType(event),
              (SelectType{Kind::all}));
}
