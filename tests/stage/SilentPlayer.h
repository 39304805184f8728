#pragma once

#include "api/MidiPlayer.h"

/// A host that plays nothing and grants nothing.
class SilentPlayer : public Backend::MidiEngine::MidiPlayer
{
public:
    void playMidi(const Backend::MidiEngine::OrvMidiMessage&) override {}
    void enableMidiInput(int, bool) override {}
    void enableMidiOutput(int, bool) override {}
    ThreadId getThreadId() override { return 0; }
    void pulseSequencer() override {}
    void setTempo(int) override {}
    void setTempoSource(char) override {}
    char getTempoSource() override { return -1; }
};
