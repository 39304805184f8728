#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <vector>

#include "tests/stage/LiveStage.h"

/// The functions that press and release the key Q, which plays a note. Any thread.
struct KeySender {
    std::function<void()> press;
    std::function<void()> release;
};

/// Keys that are posted directly to the backend.
KeySender postedKeys(LiveStage& stage);

/// The times from the press of a key until the player gets its note.
using KeyTimes = std::vector<std::chrono::steady_clock::duration>;

/// Presses the key `presses` times and adds the times. On a thread of its own.
void pressKeys(LiveStage& stage, int presses, const KeySender& way, KeyTimes& times);

/// Prints the median, the 99th percentile and the maximum.
void printKeys(const std::string& name, KeyTimes times);

/// The first argument, or `otherwise`.
int countOfPresses(int argc, char** argv, int otherwise);
