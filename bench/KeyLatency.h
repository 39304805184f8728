#pragma once

#include <functional>
#include <string>

#include "tests/stage/LiveStage.h"

/// How a press and a release of the key Q, which plays a note, come to the backend. Any thread.
struct KeyWay {
    std::function<void()> press;
    std::function<void()> release;
};

/// Straight to the backend.
KeyWay postedKeys(LiveStage& stage);

/// Measures from a key going down to the player having its note, so many times, and prints the median, the 99th
/// percentile and the longest. On a thread that nothing else needs.
void measureKeys(LiveStage& stage, const std::string& name, int presses, const KeyWay& way);

/// The first argument, or `otherwise`.
int countOfPresses(int argc, char** argv, int otherwise);
