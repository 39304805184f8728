// Any text is read as a value of every type without fail, and what the value prints is read as the same print again.
#include "fuzz/Fuzzing.h"
#include "tests/values/ValueTypes.h"

namespace
{
template <class Value>
void check(std::string_view text)
{
    const auto value = Value::fromXmlString(text);
    const auto printed = value.toXmlString();
    if (mirrors(value)) require(Value::fromXmlString(printed).toXmlString() == printed);
}

template <class... Values>
void checkAll(std::string_view text, std::tuple<Values...>*)
{
    (check<Values>(text), ...);
}

/// What is derived from an event stays a number, whatever the text and the event.
void checkTranslation(std::string_view text)
{
    const Backend::MidiEngine::MidiMessage message(static_cast<std::uint32_t>(text.size()) * 0x010101u);
    const auto value = MidiTranslationValue::fromXmlString(text);
    const auto selection = value.getSelectType(message);
    require(selection.kind != SelectType::Kind::specific || selection.value == value.getValue(message).value);
    const auto condition = MidiTranslationCondition::fromXmlString(text);
    require(condition.operand != MidiTranslationCondition::Operand::off || condition.isTrue(message));
}
}  // namespace

void tryInput(std::string_view text)
{
    checkAll(text, static_cast<ValueTypes*>(nullptr));
    checkTranslation(text);
}
