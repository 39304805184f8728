#pragma once

#include <tuple>
#include <type_traits>

#include "backend/input/midi/ChannelTranslation.h"
#include "backend/input/controls/ControlType.h"
#include "backend/input/values/Cell.h"
#include "backend/input/values/Fraction.h"
#include "backend/input/values/Key.h"
#include "backend/input/values/MidiTranslationCondition.h"
#include "backend/input/values/MidiTranslationValue.h"
#include "backend/input/values/NoteToggle.h"
#include "backend/input/values/OnOffToggle.h"
#include "backend/input/values/RelativeFixedValue.h"
#include "backend/input/values/SelectControlType.h"
#include "backend/input/values/SelectType.h"
#include "backend/input/values/TimeIntervalType.h"
#include "backend/layers/OscillatorType.h"
#include "backend/midi/MidiMessage.h"
#include "backend/midi/Note.h"

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
        return value.keyCode != 16 && value.keyCode != 17;
    else
        return true;
}
