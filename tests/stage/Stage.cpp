#include "tests/stage/Stage.h"

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
}  // namespace

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

void Stage::press(const std::string& note, int velocity, int channel, int input)
{
    arrive(noteOn(parseNote(note), velocity).channel(channel).input(input));
}

void Stage::release(const std::string& note, int channel, int input)
{
    arrive(noteOff(parseNote(note)).channel(channel).input(input));
}

void Stage::arrive(const OrvMidiMessage& event)
{
    commands().postProcessMidiInputEvent(event);
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

std::string Stage::takePlayed() { return joined(std::exchange(player.events, {}), describe, ", "); }

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

std::string Stage::received(const TestWindow::Describe& describe)
{
    rest();
    return window.received(describe);
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

void Stage::load(const std::string& path)
{
    if (path.ends_with(".bnk"))
        commands().postLoadBank(path);
    else
        commands().postLoadProgram(path);
    rest();
}

std::string Stage::loadFile(const std::string& name, const std::string& text)
{
    folders.write(name, text);
    load((folders / name).string());
    return (folders / name).string();
}
