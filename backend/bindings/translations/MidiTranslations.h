#pragma once

#include "backend/bindings/functions/MidiFunctions.h"
#include "backend/bindings/translations/MidiTranslation.h"

namespace Backend::MidiInput::TranslationManagement::Translations
{
namespace Functions = FunctionManagement::Functions;

/// Plays the event with the changes of the parameters.
class Unchanged final : public MidiTranslation<Unchanged>
{
public:
    static constexpr TranslationInfo info{"Unchanged", UNCHANGED, HelpId::translateUnchanged};
    static constexpr auto status = MidiEngine::MessageType::none;

    /// True without changes and without a condition.
    bool isPassThrough() const override
    {
        return parameters == MidiTranslationParameters{} &&
               getCondition().operand == MidiTranslationCondition::Operand::off;
    }
};

/// Plays the event of the function `Like`, with the same display name; the type name may differ.
template <class Derived, class Like>
class MidiTranslationTo : public MidiTranslation<Derived>
{
public:
    static constexpr auto status = Like::shape.status;

protected:
    static constexpr TranslationInfo named(std::string_view typeName, int helpId)
    {
        return {Like::info.displayName, typeName, helpId};
    }
};

class MidiNoteOn final : public MidiTranslationTo<MidiNoteOn, Functions::MidiNoteOn>
{
public:
    static constexpr TranslationInfo info = named("MidiNoteOn", HelpId::translateToNoteOn);
};

class MidiNoteOff final : public MidiTranslationTo<MidiNoteOff, Functions::MidiNoteOff>
{
public:
    static constexpr TranslationInfo info = named("MidiNoteOff", HelpId::translateToNoteOff);
};

class MidiKeyPressure final : public MidiTranslationTo<MidiKeyPressure, Functions::MidiKeyPressure>
{
public:
    static constexpr TranslationInfo info = named("MidiKeyPressure", HelpId::translateToKeyPressure);
};

class MidiControllerChange final : public MidiTranslationTo<MidiControllerChange, Functions::MidiControllerChange>
{
public:
    static constexpr TranslationInfo info = named("MidiControllerChange", HelpId::translateToControllerChange);
};

class MidiProgramChange final : public MidiTranslationTo<MidiProgramChange, Functions::MidiProgramChange>
{
public:
    static constexpr TranslationInfo info = named("MidiProgramChange", HelpId::translateToProgramChange);
};

class MidiChannelPressure final : public MidiTranslationTo<MidiChannelPressure, Functions::MidiChannelPressure>
{
public:
    static constexpr TranslationInfo info = named("MidiChannelPressure", HelpId::translateToChannelPressure);
};

class MidiPitchBend final : public MidiTranslationTo<MidiPitchBend, Functions::MidiPitchBend>
{
public:
    static constexpr TranslationInfo info = named("MidiPitchBend", HelpId::translateToPitchBend);
};

class MidiSongPosition final : public MidiTranslationTo<MidiSongPosition, Functions::MidiSongPosition>
{
public:
    static constexpr TranslationInfo info = named("MidiSongPosition", HelpId::translateToSongPosition);
};

class MidiSongSelect final : public MidiTranslationTo<MidiSongSelect, Functions::MidiSongSelect>
{
public:
    static constexpr TranslationInfo info = named("MidiSongSelect", HelpId::translateToSongSelect);
};

class MidiBusSelect final : public MidiTranslationTo<MidiBusSelect, Functions::MidiBusSelect>
{
public:
    static constexpr TranslationInfo info = named("MidiBusSelect", HelpId::translateToBusSelect);
};

class MidiTuneRequest final : public MidiTranslationTo<MidiTuneRequest, Functions::MidiTuneRequest>
{
public:
    static constexpr TranslationInfo info = named("MidiTuneRequest", HelpId::translateToTuneRequest);
};

class MidiTimingTick final : public MidiTranslationTo<MidiTimingTick, Functions::MidiTimingTick>
{
public:
    static constexpr TranslationInfo info = named("MidiTimingTick", HelpId::translateToTimingTick);
};

class MidiStartSong final : public MidiTranslationTo<MidiStartSong, Functions::MidiStartSong>
{
public:
    static constexpr TranslationInfo info = named("MidiStartSong", HelpId::translateToStartSong);
};

class MidiContinueSong final : public MidiTranslationTo<MidiContinueSong, Functions::MidiContinueSong>
{
public:
    static constexpr TranslationInfo info = named("MidiContinueSong", HelpId::translateToContinueSong);
};

class MidiStopSong final : public MidiTranslationTo<MidiStopSong, Functions::MidiStopSong>
{
public:
    static constexpr TranslationInfo info = named("MidiStopSong", HelpId::translateToStopSong);
};

class MidiActiveSensing final : public MidiTranslationTo<MidiActiveSensing, Functions::MidiActiveSensing>
{
public:
    static constexpr TranslationInfo info = named("MidiActiveSensing", HelpId::translateToActiveSensing);
};

class MidiSystemReset final : public MidiTranslationTo<MidiSystemReset, Functions::MidiSystemReset>
{
public:
    static constexpr TranslationInfo info = named("MidiSystemReset", HelpId::translateToSystemReset);
};
}  // namespace Backend::MidiInput::TranslationManagement::Translations
