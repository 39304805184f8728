// A whole host in one page: it owns the clock and a player, plays three notes through the library and prints what
// would go to a MIDI device. Build it against the library and its headers:
//
//     c++ -std=c++20 minimal_host.cpp -I <headers> -l Orv3_32

#include <chrono>
#include <cstdio>
#include <memory>
#include <thread>

#include "api/OrvFactory.h"
#include "api/OrvMessageManager.h"
#include "backend/messages/LayerMessageManager.h"
#include "backend/messages/MidiEngineMessageManager.h"

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

int main()
{
    PrintingPlayer player;
    const std::unique_ptr<OrvIF> orv(OrvFactory::createOrv("Minimal Host", player, false));
    OrvMessageManager& commands = orv->getOrvMessageManager();

    orv->start();
    commands.sendInitialize();
    commands.sendSetMidiInputPorts({{{.name = "Keyboard"}}});
    commands.sendSetMidiOutputPorts({{{.name = "Printer"}}});
    commands.sendEndInitialize();

    // What is played goes through layers, which a performer keeps in programs and banks. One is enough here.
    Layers::LayerList layers;
    layers.add({});
    orv->getLayerMessageManager().postSetLayers(layers, false);

    // 120 beats per minute of 480 pulses each: one slice of ten pulses every 10.4 milliseconds.
    std::int32_t pulse = 50000000;
    const auto playFor = [&](int slices) {
        for (int i = 0; i < slices; ++i, pulse += 10) {
            orv->playTimeSlice(pulse, pulse + 10);
            std::this_thread::sleep_for(std::chrono::microseconds(10417));
        }
    };
    for (const int note : {60, 64, 67}) {
        const auto post = [&](MessageType type) {
            commands.postProcessMidiInputEvent({type, note, 100, /*channel*/ 0, /*output*/ -1, /*zone*/ -1,
                                                /*input*/ 0, /*untimed*/ -1});
        };
        post(MessageType::noteOn);
        playFor(12);
        post(MessageType::noteOff);
        playFor(12);
    }

    commands.postEnableMidiInput(0, false);  // from here on nothing new comes in
    playFor(2);
    orv->getMidiEngineMessageManager().sendReset();
    commands.sendEnd();
    orv->stop();
}
