#pragma once

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <memory>
#include <string>
#include <thread>

#include "api/OrvFactory.h"
#include "api/OrvMessageManager.h"
#include "backend/messages/BackendThread.h"
#include "backend/messages/LayerMessageManager.h"
#include "tests/stage/PrivateFolders.h"
#include "tests/stage/SilentPlayer.h"

/// The library with a clock that runs, a slice each millisecond, for what happens while it plays, with real-time
/// priorities where the system grants them. One input, one output, one layer; the key Q plays C4. Its user is new, with
/// folders of its own. For a program that links the backend or the library.
class LiveStage
{
public:
    using Time = std::chrono::steady_clock::time_point;

    /// Counts what arrives.
    class Player final : public SilentPlayer
    {
    public:
        std::atomic<int> events{0};
        Time last;  ///< when the last event came; read after `events` has grown
        std::atomic<ThreadId> clockThread{0};

        void playMidi(const Backend::MidiEngine::OrvMidiMessage& event) override
        {
            last = std::chrono::steady_clock::now();
            if (event.isNote()) sounding[static_cast<std::size_t>(event.getD1())] = event.isNoteOn();
            ++events;
        }
        ThreadId getThreadId() override { return clockThread; }

        bool isSilent() const
        {
            return std::ranges::none_of(sounding, [](const std::atomic<bool>& note) { return note.load(); });
        }

    private:
        std::array<std::atomic<bool>, 128> sounding{};
    };

    LiveStage() : orv(Backend::OrvFactory::createOrv("Live Stage", player, false))
    {
        orv->requestRealTime();
        orv->start();
        commands().sendInitialize();
        commands().sendSetMidiInputPorts({{{.name = "In"}}});
        commands().sendSetMidiOutputPorts({{{.name = "Out"}}});
        clock = std::thread([this] { runClock(); });
        commands().sendEndInitialize();
        loadKeys();
    }

    ~LiveStage()
    {
        commands().sendEnd();
        stopping = true;
        clock.join();
        orv->stop();
    }

    Backend::OrvMessageManager& commands() { return orv->getOrvMessageManager(); }

    void rest() const
    {
        while (!orv->isAtRest()) std::this_thread::yield();
    }

    PrivateFolders folders;
    Backend::BackendThread::StandIn standIn;  // the test's thread looks at a backend at rest
    Player player;
    std::unique_ptr<Backend::OrvIF> orv;

private:
    void loadKeys()
    {
        folders.write("keys.prg",
                      "<ProgramFile><Program><ComputerInput><Key id='Q'><Function><Down><MidiNoteOn note='C4'/></Down>"
                      "<Up><MidiNoteOff note='C4'/></Up></Function></Key></ComputerInput><Layers><Layer/></Layers>"
                      "</Program></ProgramFile>");
        commands().postLoadProgram((folders / "keys.prg").string());
        rest();
    }

    void runClock()
    {
        constexpr std::int32_t FIRST_PULSE = 50000000;
        player.clockThread = currentThreadId();
        requestRealTimePriority(RealTimeStep::clock);
        auto next = std::chrono::steady_clock::now();
        for (std::int32_t pulse = FIRST_PULSE; !stopping; ++pulse) {
            orv->playTimeSlice(pulse, pulse + 1);
            std::this_thread::sleep_until(next += std::chrono::milliseconds(1));
        }
    }

    std::atomic<bool> stopping{false};
    std::thread clock;
};
