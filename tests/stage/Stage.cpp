#include "tests/stage/Stage.h"

#include <atomic>
#include <thread>

#include "api/OrvFactory.h"
#include "backend/messages/LayerMessageManager.h"
#include "backend/values/Note.h"

using namespace Backend;
using namespace Backend::MidiEngine;

namespace
{
std::string describe(const OrvMidiMessage& event)
{
    const std::string note = getNoteName(event.getD1(), Octave::with);
    std::string text;
    if (event.isNoteOn())
        text = note + " on";
    else if (event.isNoteOff())
        text = note + " off";
    else
        text = event.getEventName() + " " + std::to_string(event.getD1()) + " " + std::to_string(event.getD2());
    if (event.getOutput() != 0) text += " on output " + std::to_string(event.getOutput());
    if (event.getChannel() != 0) text += " channel " + std::to_string(event.getChannel());
    return text;
}

template <class Ports>
Ports makePorts(std::initializer_list<const char*> names)
{
    Ports ports;
    for (const char* name : names) ports.push_back({{.name = name}});
    return ports;
}

const char* onOff(bool on) { return on ? " on" : " off"; }
}  // namespace

void RecordingPlayer::enableMidiInput(int port, bool enabled)
{
    requests.push_back("input " + std::to_string(port) + onOff(enabled));
}

void RecordingPlayer::enableMidiOutput(int port, bool enabled)
{
    requests.push_back("output " + std::to_string(port) + onOff(enabled));
}

void RecordingPlayer::setTempoSource(char source)
{
    tempoSource = source;
    requests.push_back("source " + std::to_string(source));
}

Stage::Stage() : orv(OrvFactory::createOrv("Stage", player, false))
{
    orv->start();
    commands().sendInitialize();
    commands().sendSetMidiInputPorts(inputs({"In 1", "In 2", "In 3"}));
    commands().sendSetMidiOutputPorts(outputs({"Out 1", "Out 2", "Out 3"}));
    commands().sendEndInitialize();
    setLayers({{}});
    slice(1);
    player.requests.clear();
}

Stage::~Stage()
{
    commands().sendEnd();
    orv->stop();
}

MidiInputPorts Stage::inputs(std::initializer_list<const char*> names) const
{
    return makePorts<MidiInputPorts>(names);
}

MidiOutputPorts Stage::outputs(std::initializer_list<const char*> names) const
{
    return makePorts<MidiOutputPorts>(names);
}

void Stage::press(const std::string& note, int velocity, int channel, int input)
{
    midi(input, MessageType::noteOn, parseNote(note), velocity, channel);
}

void Stage::release(const std::string& note, int channel, int input)
{
    midi(input, MessageType::noteOff, parseNote(note), 64, channel);
}

void Stage::midi(int input, MessageType type, int d1, int d2, int channel)
{
    commands().postProcessMidiInputEvent({type, d1, d2, channel, -1, -1, input, -1});
    rest();
}

void Stage::play(const OrvMidiMessage& event)
{
    commands().postPlayMidi(event);
    rest();
}

void Stage::slice(std::int32_t length)
{
    orv->playTimeSlice(pulse, pulse + length);
    pulse += length;
}

void Stage::playSlices(int count)
{
    for (int i = 0; i < count; ++i) {
        slice(1);
        rest();
    }
}

void Stage::rest()
{
    while (true) {
        while (!orv->isAtRest()) std::this_thread::yield();
        if (!orv->isResetWaiting()) return;
        slice(0);
    }
}

std::string Stage::played()
{
    rest();
    playSlices();
    return takePlayed();
}

std::string Stage::takePlayed()
{
    std::string text;
    for (const auto& event : player.events) text += (text.empty() ? "" : ", ") + describe(event);
    player.events.clear();
    return text;
}

void Stage::playWhile(const std::function<void()>& task)
{
    std::atomic<bool> done = false;
    std::thread other([&] {
        task();
        done = true;
    });
    while (!done) {
        slice(1);
        std::this_thread::yield();
    }
    other.join();
}

void Stage::setOutputEnabled(int output, bool enabled)
{
    auto ports = outputs({"Out 1", "Out 2", "Out 3"});
    ports[static_cast<std::size_t>(output)].enabled = enabled;
    commands().sendSetMidiOutputPorts(ports);
    rest();
}

void Stage::setLayers(const std::vector<Layers::Layer>& layers)
{
    Layers::LayerList list;
    for (const Layers::Layer& layer : layers) list.add(layer);
    orv->getLayerMessageManager().postSetLayers(list, false);
    rest();
}

void Stage::setThru(bool on)
{
    commands().postChangeMidiThru({on ? OnOffToggle::State::on : OnOffToggle::State::off}, false);
    rest();
}
