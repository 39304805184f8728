#pragma once

#include <functional>
#include <string>

#include "tests/stage/LiveStage.h"

/// The functions that press and release the key Q, which plays a note. Any thread.
struct KeySender {
    std::function<void()> press;
    std::function<void()> release;
};

/// Keys that are posted directly to the backend.
KeySender postedKeys(LiveStage& stage);

/// Measures the time from the press of a key until the player gets its note, `presses` times, and prints the median,
/// the 99th percentile and the maximum. On a thread of its own.
void measureKeys(LiveStage& stage, const std::string& name, int presses, const KeySender& way);

/// The first argument, or `otherwise`.
int countOfPresses(int argc, char** argv, int otherwise);
