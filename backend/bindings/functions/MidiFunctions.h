#pragma once

#include "backend/bindings/functions/HelpId.h"
#include "backend/bindings/functions/MidiFunction.h"

namespace Backend::FunctionManagement::Functions
{
inline constexpr MidiDataShape NOTE{"note", -1, 60, MidiDataShape::Text::note};
inline constexpr MidiDataShape VELOCITY{"velocity", 100, 100};

/// A system message that does not go through the layers.
constexpr MidiShape systemMessage(MidiEngine::MessageType status, MidiDataShape d1 = {})
{
    return {.status = status, .path = MidiShape::Path::engine, .hasChannel = false, .d1 = d1};
}

class MidiNoteOn final : public MidiFunction<MidiNoteOn>
{
public:
    static constexpr FunctionInfo info{"Midi Note On", "MidiNoteOn", HelpId::midiNoteOn};
    static constexpr MidiShape shape{.status = MidiEngine::MessageType::noteOn, .d1 = NOTE, .d2 = VELOCITY};
    using MidiFunction::MidiFunction;

    /// Its note, if it has a zone.
    FunctionNoteSpan getNoteSpan() const override;
};

class MidiNoteOff final : public MidiFunction<MidiNoteOff>
{
public:
    static constexpr FunctionInfo info{"Midi Note Off", "MidiNoteOff", HelpId::midiNoteOff};
    static constexpr MidiShape shape{.status = MidiEngine::MessageType::noteOff, .d1 = NOTE, .d2 = VELOCITY};
    using MidiFunction::MidiFunction;
};

class MidiKeyPressure final : public MidiFunction<MidiKeyPressure>
{
public:
    static constexpr FunctionInfo info{"Midi Key Pressure", "MidiKeyPressure", HelpId::midiKeyPressure};
    static constexpr MidiShape shape{
        .status = MidiEngine::MessageType::keyPressure, .d1 = {"key", 0, 60}, .d2 = {"pressure", 0, 0}};
    using MidiFunction::MidiFunction;
};

class MidiControllerChange final : public MidiFunction<MidiControllerChange>
{
public:
    static constexpr FunctionInfo info{"Midi Controller Change", "MidiControllerChange", HelpId::midiControllerChange};
    static constexpr MidiShape shape{
        .status = MidiEngine::MessageType::controllerChange, .d1 = {"controller", 0, 0}, .d2 = {"value", 100, 0}};
    using MidiFunction::MidiFunction;
};

class MidiProgramChange final : public MidiFunction<MidiProgramChange>
{
public:
    static constexpr FunctionInfo info{"Midi Program Change", "ProgramChange", HelpId::midiProgramChange};
    static constexpr MidiShape shape{.status = MidiEngine::MessageType::programChange, .d1 = {"program"}};
    using MidiFunction::MidiFunction;
};

class MidiChannelPressure final : public MidiFunction<MidiChannelPressure>
{
public:
    static constexpr FunctionInfo info{"Midi Channel Pressure", "MidiChannelPressure", HelpId::midiChannelPressure};
    static constexpr MidiShape shape{.status = MidiEngine::MessageType::channelPressure, .d1 = {"pressure"}};
    using MidiFunction::MidiFunction;
};

class MidiPitchBend final : public MidiFunction<MidiPitchBend>
{
public:
    static constexpr FunctionInfo info{"Midi Pitch Bend", "MidiPitchBend", HelpId::midiPitchBend};
    static constexpr MidiShape shape{.status = MidiEngine::MessageType::pitchBend,
                                     .d1 = {"value", 0, 8192},
                                     .width = MidiShape::Width::fourteenBits};
    using MidiFunction::MidiFunction;
};

class MidiSongPosition final : public MidiFunction<MidiSongPosition>
{
public:
    static constexpr FunctionInfo info{"Midi Song Position", "MidiSongPosition", HelpId::midiSongPosition};
    static constexpr MidiShape shape{.status = MidiEngine::MessageType::songPosition,
                                     .hasChannel = false,
                                     .d1 = {"value"},
                                     .width = MidiShape::Width::fourteenBits};
    using MidiFunction::MidiFunction;
};

class MidiSongSelect final : public MidiFunction<MidiSongSelect>
{
public:
    static constexpr FunctionInfo info{"Midi Song Select", "MidiSongSelect", HelpId::midiSongSelect};
    static constexpr MidiShape shape = systemMessage(MidiEngine::MessageType::songSelect, {"songNumber"});
    using MidiFunction::MidiFunction;
};

class MidiBusSelect final : public MidiFunction<MidiBusSelect>
{
public:
    static constexpr FunctionInfo info{"Midi Bus Select", "MidiBusSelect", HelpId::midiBusSelect};
    static constexpr MidiShape shape = systemMessage(MidiEngine::MessageType::unofficialBusSelect, {"busNumber"});
    using MidiFunction::MidiFunction;
};

class MidiTuneRequest final : public MidiFunction<MidiTuneRequest>
{
public:
    static constexpr FunctionInfo info{"Midi Tune Request", "MidiTuneRequest", HelpId::midiTuneRequest};
    static constexpr MidiShape shape = systemMessage(MidiEngine::MessageType::tuneRequest);
    using MidiFunction::MidiFunction;
};

class MidiEndOfSysEx final : public MidiFunction<MidiEndOfSysEx>
{
public:
    static constexpr FunctionInfo info{"Midi End Of SysEx", "MidiEndOfSysEx", HelpId::midiEndOfSysEx};
    static constexpr MidiShape shape = systemMessage(MidiEngine::MessageType::endOfSysex);
    using MidiFunction::MidiFunction;
};

class MidiTimingTick final : public MidiFunction<MidiTimingTick>
{
public:
    static constexpr FunctionInfo info{"Midi Timing Tick", "MidiTimingTick", HelpId::midiTimingTick};
    static constexpr MidiShape shape = systemMessage(MidiEngine::MessageType::timingTick);
    using MidiFunction::MidiFunction;
};

class MidiStartSong final : public MidiFunction<MidiStartSong>
{
public:
    static constexpr FunctionInfo info{"Midi Start Song", "MidiStartSong", HelpId::midiStartSong};
    static constexpr MidiShape shape = systemMessage(MidiEngine::MessageType::startSong);
    using MidiFunction::MidiFunction;
};

class MidiContinueSong final : public MidiFunction<MidiContinueSong>
{
public:
    static constexpr FunctionInfo info{"Midi Continue Song", "MidiContinueSong", HelpId::midiContinueSong};
    static constexpr MidiShape shape = systemMessage(MidiEngine::MessageType::continueSong);
    using MidiFunction::MidiFunction;
};

class MidiStopSong final : public MidiFunction<MidiStopSong>
{
public:
    static constexpr FunctionInfo info{"Midi Stop Song", "MidiStopSong", HelpId::midiStopSong};
    static constexpr MidiShape shape = systemMessage(MidiEngine::MessageType::stopSong);
    using MidiFunction::MidiFunction;
};

class MidiActiveSensing final : public MidiFunction<MidiActiveSensing>
{
public:
    static constexpr FunctionInfo info{"Midi Active Sensing", "MidiActiveSensing", HelpId::midiActiveSensing};
    static constexpr MidiShape shape = systemMessage(MidiEngine::MessageType::activeSensing);
    using MidiFunction::MidiFunction;
};

class MidiSystemReset final : public MidiFunction<MidiSystemReset>
{
public:
    static constexpr FunctionInfo info{"Midi System Reset", "MidiSystemReset", HelpId::midiSystemReset};
    static constexpr MidiShape shape = systemMessage(MidiEngine::MessageType::systemReset);
    using MidiFunction::MidiFunction;
};

}  // namespace Backend::FunctionManagement::Functions
