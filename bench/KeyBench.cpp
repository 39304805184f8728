// The time from a pressed key to the player: `build/release/bin/bench_keys [PRESSES]`. The key is posted to the backend
// thread, its note to the engine's command thread, and the slice after the one that takes it from the queue plays it;
// slices have a millisecond. And the same while a program is saved into a bank of a thousand, again and again. All
// threads but those of the saves have real-time priority where the system grants it.

#include <cstdio>

#include "backend/messages/GuiMessages.h"
#include "bench/BigBank.h"
#include "bench/KeyLatency.h"

namespace
{
struct Saves {
    int count = 0;
    double milliseconds = 0;
};

/// Saves the current program in its place in the current bank, until it is destroyed.
class Saver
{
public:
    Saver(LiveStage& liveStage, Saves& counted) : stage(liveStage), saves(counted), thread([this] { run(); }) {}
    ~Saver()
    {
        stopping = true;
        thread.join();
    }

private:
    void run()
    {
        const auto dialog = std::make_shared<MessageQueue>();
        while (!stopping) {
            const auto begin = std::chrono::steady_clock::now();
            stage.commands().postSaveToCurrentBank(0, WindowHandle(dialog));
            dialog->waitForMessage();
            dialog->handleNext([&](Message& message) { saves.count += static_cast<int>(message.wparam); });
            saves.milliseconds +=
                std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
        }
    }

    LiveStage& stage;
    Saves& saves;
    std::atomic<bool> stopping{false};
    std::thread thread;
};
}  // namespace

int main(int argc, char** argv)
{
    constexpr int TURNS = 8;  // in turns, because the machine is not equally busy all the time
    LiveStage stage;
    const bool realTime = requestRealTimePriority(RealTimeStep::backend);
    std::printf("%s real-time priority\n", realTime ? "with" : "without");
    const int presses = countOfPresses(argc, argv, 2000);
    const std::string bank = (stage.folders / "thousand.bnk").string();
    BigBank::write(bank);
    stage.commands().postLoadBank(bank);
    stage.commands().postLoadProgram((stage.folders / "keys.prg").string());
    stage.rest();
    KeyTimes alone;
    KeyTimes beside;
    Saves saves;
    for (int turn = 0; turn < TURNS; ++turn) {
        pressKeys(stage, presses / TURNS, postedKeys(stage), alone);
        const Saver saver(stage, saves);
        pressKeys(stage, presses / TURNS, postedKeys(stage), beside);
    }
    printKeys("key to player", alone);
    printKeys("key to player during saves", beside);
    std::printf("%d saves of %.1f ms\n", saves.count, saves.milliseconds / saves.count);
}
