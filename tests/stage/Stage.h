#pragma once

#include <atomic>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "api/MidiPlayer.h"
#include "api/OrvIF.h"
#include "api/OrvMessageManager.h"
#include "backend/messages/BackendThread.h"
#include "backend/messages/MidiEngineMessageManager.h"
#include "backend/model/Layer.h"
#include "tests/stage/PrivateFolders.h"
#include "tests/stage/TestEvent.h"

/// A player that writes down what it gets. Called by one thread at a time, under the engine lock.
class RecordingPlayer final : public Backend::MidiEngine::MidiPlayer
{
public:
    std::vector<Backend::MidiEngine::OrvMidiMessage> events;
    std::vector<std::string> requests;  ///< "input 1 off", "tempo 90", "source 2"
    ThreadId thread = currentThreadId();
    char tempoSource = -1;
    std::atomic<std::uint32_t> milliseconds{0};  ///< the time that stands until a test moves it

    void playMidi(const Backend::MidiEngine::OrvMidiMessage& event) override { events.push_back(event); }
    void enableMidiInput(int port, bool enabled) override;
    void enableMidiOutput(int port, bool enabled) override;
    ThreadId getThreadId() override { return thread; }
    void pulseSequencer() override {}
    void setTempo(int bpm) override { requests.push_back("tempo " + std::to_string(bpm)); }
    void setTempoSource(char source) override;
    char getTempoSource() override { return tempoSource; }
    std::uint32_t getMilliseconds() override { return milliseconds; }
};

/// The library on a stage: real threads, a clock that is a counter and a recording player. Ports "In 1".."In 3" and
/// "Out 1".."Out 3", all enabled; the default output is the first. One default layer. Its user is new, with folders of
/// its own.
class Stage
{
public:
    static constexpr std::int32_t START = 50000000;

    Stage();
    ~Stage();

    /// A key of input 1 (or another) on a channel.
    void press(const std::string& note, int velocity = 100, int channel = 0, int input = 0);
    void release(const std::string& note, int channel = 0, int input = 0);
    void midi(int input, Backend::MidiEngine::MessageType type, int d1, int d2, int channel);

    /// An event of the backend's own.
    void play(const Backend::MidiEngine::OrvMidiMessage& event);

    /// Slices of one pulse each, with rest after each.
    void playSlices(int count = 2);
    void slice(std::int32_t length);

    /// Waits until nothing is left to do, serving resets.
    void rest();

    /// What the player got since the last call, each "C4 on", "C4 off" or the event's name with its data, with
    /// " on output 1" and " channel 2" where they are not 0. Plays two slices first.
    std::string played();
    /// The same without playing.
    std::string takePlayed();

    /// Runs `task` on another thread and plays slices until it is done.
    void playWhile(const std::function<void()>& task);

    Backend::MidiEngine::MidiInputPorts inputs(std::initializer_list<const char*> names) const;
    Backend::MidiEngine::MidiOutputPorts outputs(std::initializer_list<const char*> names) const;
    void setOutputEnabled(int output, bool enabled);
    void setThru(bool on);
    /// Replaces all layers.
    void setLayers(const std::vector<Backend::Layers::Layer>& layers);

    Backend::OrvMessageManager& commands() { return orv->getOrvMessageManager(); }
    Backend::MidiEngine::MidiEngineMessageManager& engine() { return orv->getMidiEngineMessageManager(); }

    PrivateFolders folders;
    Backend::BackendThread::StandIn standIn;  // the test's thread uses a backend at rest
    RecordingPlayer player;
    std::unique_ptr<Backend::OrvIF> orv;
    std::int32_t pulse = START;
};
