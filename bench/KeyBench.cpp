// From a key going down to the player: `build/release/bin/bench_keys [PRESSES]`. The key crosses to the backend's
// thread and to the engine's, and is played by the slice after the one that finds it, slices being a millisecond.

#include "bench/KeyLatency.h"

int main(int argc, char** argv)
{
    LiveStage stage;
    measureKeys(stage, "key to player", countOfPresses(argc, argv, 2000), postedKeys(stage));
}
