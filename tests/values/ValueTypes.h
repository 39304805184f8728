#pragma once

#include <tuple>
#include <type_traits>

#include "backend/model/ChannelTranslation.h"
#include "backend/model/ControlType.h"
#include "backend/model/OscillatorType.h"
#include "backend/values/Cell.h"
#include "backend/values/Fraction.h"
#include "backend/values/Key.h"
#include "backend/values/MidiMessage.h"
#include "backend/values/MidiTranslationCondition.h"
#include "backend/values/MidiTranslationValue.h"
#include "backend/values/Note.h"
#include "backend/values/NoteToggle.h"
#include "backend/values/OnOffToggle.h"
#include "backend/values/RelativeFixedValue.h"
#include "backend/values/SelectControlType.h"
#include "backend/values/SelectType.h"
#include "backend/values/TimeIntervalType.h"

/// Every type of value that is stored as an attribute. A new one joins here, and the tests and the fuzzer that walk all
/// of them cover it.
using ValueTypes =
    std::tuple<Cell, Fraction, Key, MidiTranslationCondition, MidiTranslationValue, NoteToggle, OnOffToggle,
               RelativeFixedValue, SelectControlType, SelectType, TimeIntervalType, Backend::MidiEngine::Note,
               Backend::MidiEngine::MidiMessage, Backend::MidiInput::ChannelTranslation,
               Backend::Oscillators::OscillatorType, Backend::Controls::ControlType>;

/// Whether what a value prints must print the same again when it is read. The names of the left modifier keys are
/// printed but not read.
template <class Value>
bool mirrors(const Value& value)
{
    if constexpr (std::is_same_v<Value, Key>)
        return value.keyCode != Key::LEFT_SHIFT && value.keyCode != Key::LEFT_CONTROL;
    else
        return true;
}
