#pragma once

#include <gtest/gtest.h>

#include <atomic>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "api/OrvIF.h"
#include "api/OrvMessageManager.h"
#include "backend/messages/BackendThread.h"
#include "backend/messages/MidiEngineMessageManager.h"
#include "backend/model/Layer.h"
#include "tests/stage/PrivateFolders.h"
#include "tests/stage/SilentPlayer.h"
#include "tests/stage/TestEvent.h"
#include "tests/stage/TestWindow.h"

/// A player that records what it gets. Called by one thread at a time, under the engine lock.
class RecordingPlayer final : public SilentPlayer
{
public:
    std::vector<Backend::MidiEngine::OrvMidiMessage> events;
    std::vector<std::string> requests;  ///< "input 1 off", "tempo 90", "source 2", "wake 1"
    ThreadId thread = currentThreadId();
    char tempoSource = -1;
    std::atomic<std::uint32_t> milliseconds{0};  ///< the time, which only a test changes

    void playMidi(const Backend::MidiEngine::OrvMidiMessage& event) override { events.push_back(event); }
    void enableMidiInput(int port, bool enabled) override { request("input", port, enabled ? " on" : " off"); }
    void enableMidiOutput(int port, bool enabled) override { request("output", port, enabled ? " on" : " off"); }
    ThreadId getThreadId() override { return thread; }
    void setTempo(int bpm) override { request("tempo", bpm); }
    void setTempoSource(char source) override { request("source", tempoSource = source); }
    char getTempoSource() override { return tempoSource; }
    void wakeClock() override { request("wake", 1); }
    std::uint32_t getMilliseconds() override { return milliseconds; }

    /// What was requested since the last call, "input 1 off, tempo 90".
    std::string takeRequests() { return joined(std::exchange(requests, {}), std::identity(), ", "); }

private:
    void request(const std::string& what, int value, const std::string& how = "")
    {
        requests.push_back(what + " " + std::to_string(value) + how);
    }
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
    /// An event that arrives at the input that it names.
    void arrive(const Backend::MidiEngine::OrvMidiMessage& event);
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

    /// From now on the backend has a window.
    void openWindow() { orv->setGuiWindowHandle(window.handle()); }
    /// What the window received since the last call, once nothing is left to do.
    std::string received(const TestWindow::Describe& describe = TestWindow::words);

    static auto inputs(const std::vector<const char*>& names)
    {
        return ports<Backend::MidiEngine::MidiInputPorts>(names);
    }
    static auto outputs(const std::vector<const char*>& names)
    {
        return ports<Backend::MidiEngine::MidiOutputPorts>(names);
    }
    void setOutputEnabled(int output, bool enabled);
    void setThru(bool on);
    /// Replaces all layers.
    void setLayers(const std::vector<Backend::Layers::Layer>& layers);
    /// Loads a bank or a program, as its name ends, from a file with this text in `folders`; its path.
    std::string loadFile(const std::string& name, const std::string& text);
    void load(const std::string& path);

    Backend::OrvMessageManager& commands() { return orv->getOrvMessageManager(); }
    Backend::MidiEngine::MidiEngineMessageManager& engine() { return orv->getMidiEngineMessageManager(); }

    PrivateFolders folders;
    Backend::BackendThread::StandIn standIn;  // the test's thread uses a backend at rest
    RecordingPlayer player;
    TestWindow window;
    std::unique_ptr<Backend::OrvIF> orv;
    std::int32_t pulse = START;

private:
    template <class Ports>
    static Ports ports(const std::vector<const char*>& names)
    {
        Ports ports;
        for (const char* name : names) ports.push_back({{.name = name}});
        return ports;
    }
};
