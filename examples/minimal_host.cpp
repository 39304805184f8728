// A whole host in one page: it owns the clock and a player, plays three notes through the library and prints what
// would go to a MIDI device. Build it against the library and its headers:
//
//     c++ -std=c++20 minimal_host.cpp $(pkg-config --cflags --libs orvane)

#include <chrono>
#include <cstdio>
#include <memory>
#include <thread>

#include "api/MidiPlayer.h"
#include "api/OrvFactory.h"
#include "api/OrvMessageManager.h"

using namespace Backend;
using namespace Backend::MidiEngine;

/// The way out. Everything here is called with the engine lock held, so nothing here may wait.
class PrintingPlayer : public MidiPlayer
{
public:
    void playMidi(const OrvMidiMessage& event) override
    {
        std::printf("output %d: %02X %d %d\n", event.getOutput(), event.getStatusWithChannel(), event.getD1(),
                    event.getD2());
    }
    void enableMidiInput(int, bool) override {}
    void enableMidiOutput(int, bool) override {}
    ThreadId getThreadId() override { return currentThreadId(); }  // this host has one thread only
    void pulseSequencer() override {}
    void setTempo(int) override {}
    void setTempoSource(char) override {}
    char getTempoSource() override { return -1; }
};

/// A program of one layer, which plays to the default output. Performers keep theirs in banks.
constexpr const char* PROGRAM =
    "<ProgramFile><Program name=\"One Layer\"><Layers><Layer/></Layers></Program></ProgramFile>";

int main()
{
    PrintingPlayer player;
    const auto orv = OrvFactory::makeOrv("Minimal Host", player, false);
    OrvMessageManager& commands = orv->getOrvMessageManager();

    orv->start();
    commands.sendInitialize();
    commands.sendSetMidiInputPorts({{{.name = "Keyboard"}}});
    commands.sendSetMidiOutputPorts({{{.name = "Printer"}}});
    commands.sendEndInitialize();
    commands.postLoadProgramFromString(PROGRAM, 0);

    // 120 beats per minute of 480 pulses each: one slice of ten pulses every 10.4 milliseconds.
    std::int32_t pulse = OrvIF::FIRST_PULSE;
    const auto playFor = [&](int slices) {
        for (int i = 0; i < slices; ++i, pulse += 10) {
            orv->playTimeSlice(pulse, pulse + 10);
            std::this_thread::sleep_for(std::chrono::microseconds(10417));
        }
    };
    // What arrives at an input is played at once, unless it executes a function.
    const auto receive = [&](const OrvMidiMessage& event) {
        if (!orv->playMidiInputEvent(event)) commands.postProcessMidiInputEvent(event);
    };
    for (const int note : {60, 64, 67}) {
        receive(OrvMidiMessage({.type = MessageType::noteOn, .d1 = note, .d2 = 100, .channel = 0, .input = 0}));
        playFor(12);
        receive(OrvMidiMessage({.type = MessageType::noteOff, .d1 = note, .d2 = 100, .channel = 0, .input = 0}));
        playFor(12);
    }

    commands.postEnableMidiInput(0, false);  // from here on nothing new comes in
    playFor(2);
    commands.sendReset();
    commands.sendEnd();
    orv->stop();
}
