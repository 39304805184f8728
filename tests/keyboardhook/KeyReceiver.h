#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <memory>
#include <thread>

#include "keyboardhook/KeyboardHookMessages.h"
#include "platform/WindowHandle.h"
#include "tests/keyboardhook/KeyTexts.h"

/// A window of ours with the global keyboard.
struct KeyReceiver {
    /// What a window of ours received so far: Q< where a key goes down, Q= where it repeats, Q> where it comes up, and
    /// whether keys are taken.
    const std::string& received()
    {
        while (queue->handleNext([this](const Message& message) { text += describe(message); })) {}
        return text;
    }
    static std::string describe(const Message& message)
    {
        using namespace KeyboardHook;
        if (message.number == UD_KEYBOARDHOOK_GLOBAL_KEY_CHANGED) return message.wparam != 0 ? "(on)" : "(off)";
        const auto event = KeyEvent::fromMessage(message);
        return nameOf(event.scanCode, event.modifiers) + (message.number == KEY_UP     ? '>'
                                                          : event.repeat               ? '='
                                                          : message.number == KEY_DOWN ? '<'
                                                                                       : '?');
    }

    /// Whether it comes true before patience ends.
    static bool waitUntil(const std::function<bool()>& condition)
    {
        using namespace std::chrono_literals;
        for (const auto start = std::chrono::steady_clock::now(); !condition();) {
            if (std::chrono::steady_clock::now() - start > 10s) return false;
            std::this_thread::sleep_for(1ms);
        }
        return true;
    }
    /// Of this window, or of a program.
    static void expectAll(auto& of, const std::string& all)
    {
        waitUntil([&] { return of.received().size() >= all.size(); });
        EXPECT_EQ(of.received(), all);
    }
    static void expectLast(auto& of, const std::string& end)
    {
        EXPECT_TRUE(waitUntil([&] { return of.received().ends_with(end); })) << of.received();
    }

    std::shared_ptr<MessageQueue> queue = std::make_shared<MessageQueue>();
    WindowHandle handle{queue};
    std::string text;
};
