// The time from a pressed key to the player: `build/release/bin/bench_keys [PRESSES]`. The key is posted to the backend
// thread, its note to the engine's command thread, and the slice after the one that takes it from the queue plays it;
// slices have a millisecond. Then the same while a program is saved into a bank of a thousand, again and again. All
// threads but those of the saves have real-time priority where the system grants it.

#include <cstdio>

#include "backend/messages/GuiMessages.h"
#include "bench/BigBank.h"
#include "bench/KeyLatency.h"

namespace
{
/// Saves the current program in its place in the current bank, until it is destroyed.
class Saver
{
public:
    explicit Saver(LiveStage& liveStage) : stage(liveStage), thread([this] { run(); }) {}
    ~Saver()
    {
        stopping = true;
        thread.join();
        std::printf("%d saves of %.1f ms\n", saves, milliseconds / saves);
    }

private:
    void run()
    {
        const auto dialog = std::make_shared<MessageQueue>();
        while (!stopping) {
            const auto begin = std::chrono::steady_clock::now();
            stage.commands().postSaveToCurrentBank(0, WindowHandle(dialog));
            dialog->waitForMessage();
            dialog->handleNext([&](Message& message) { saves += static_cast<int>(message.wparam); });
            milliseconds += std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
        }
    }

    LiveStage& stage;
    std::atomic<bool> stopping{false};
    int saves = 0;
    double milliseconds = 0;
    std::thread thread;
};
}  // namespace

int main(int argc, char** argv)
{
    LiveStage stage;
    const bool realTime = requestRealTimePriority(RealTimeStep::backend);
    std::printf("%s real-time priority\n", realTime ? "with" : "without");
    const int presses = countOfPresses(argc, argv, 2000);
    measureKeys(stage, "key to player", presses, postedKeys(stage));

    const std::string bank = (stage.folders / "thousand.bnk").string();
    BigBank::write(bank);
    stage.commands().postLoadBank(bank);
    stage.commands().postLoadProgram((stage.folders / "keys.prg").string());
    stage.rest();
    const Saver saver(stage);
    measureKeys(stage, "key to player during saves", presses, postedKeys(stage));
}
