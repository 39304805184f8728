#include "backend/values/MidiTranslationCondition.h"

#include "backend/xml/Text.h"
#include "backend/xml/Words.h"

namespace
{
using Operand = MidiTranslationCondition::Operand;
using Comparison = MidiTranslationCondition::Comparison;

constexpr auto OPERANDS =
    std::to_array<Word<Operand>>({{Operand::off, "Off"}, {Operand::d1, "D1"}, {Operand::d2, "D2"}});
constexpr auto COMPARISONS = std::to_array<Word<Comparison>>({{Comparison::lt, "lt"},
                                                              {Comparison::gt, "gt"},
                                                              {Comparison::le, "le"},
                                                              {Comparison::ge, "ge"},
                                                              {Comparison::eq, "eq"},
                                                              {Comparison::ne, "ne"}});
}  // namespace

MidiTranslationCondition MidiTranslationCondition::fromXmlString(std::string_view text)
{
    MidiTranslationCondition condition;
    condition.operand = readWord(OPERANDS, Text::nextToken(text, ' ')).value_or(Operand::off);
    condition.comparison = readWord(COMPARISONS, Text::nextToken(text, ' ')).value_or(Comparison::eq);
    condition.value = Text::parseInteger(Text::nextToken(text, ' ')).value_or(0);
    return condition;
}

std::string MidiTranslationCondition::toXmlString() const
{
    std::string text(printWord(OPERANDS, operand).value_or("Off"));
    if (operand == Operand::off) return text;
    return text.append(" ").append(printWord(COMPARISONS, comparison).value_or("eq")) + " " + std::to_string(value);
}

bool MidiTranslationCondition::isTrue(const Backend::MidiEngine::MidiMessage& message) const
{
    if (operand == Operand::off) return true;
    const auto data = static_cast<std::int8_t>(operand == Operand::d1 ? message.getD1() : message.getD2());
    switch (comparison) {
        case Comparison::lt:
            return data < value;
        case Comparison::gt:
            return data > value;
        case Comparison::le:
            return data <= value;
        case Comparison::ge:
            return data >= value;
        case Comparison::eq:
            return data == value;
        case Comparison::ne:
            return data != value;
    }
    return false;
}
