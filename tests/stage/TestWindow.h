#pragma once

#include <functional>
#include <memory>
#include <string>

#include "backend/messages/GuiMessages.h"
#include "platform/MessageQueue.h"
#include "platform/WindowHandle.h"
#include "tests/stage/Text.h"

/// A window, or a dialog, that collects what the backend sends to it.
class TestWindow
{
public:
    using Describe = std::function<std::string(Message&)>;

    WindowHandle handle() const { return WindowHandle(queue); }

    /// What `describe` makes of each message since the last call, without "", with ", " between them.
    std::string received(const Describe& describe = words)
    {
        std::string all;
        while (queue->handleNext([&](Message& message) {
            const std::string text = describe(message);
            if (!text.empty()) all += (all.empty() ? "" : ", ") + text;
        })) {}
        return all;
    }

    /// The number of a message and its two parameters, "33257 1 0".
    static std::string words(Message& message) { return std::to_string(message.number) + " " + parameters(message); }
    static std::string parameters(Message& message)
    {
        return std::to_string(message.wparam) + " " + std::to_string(message.lparam);
    }
    static std::string number(Message& message) { return std::to_string(message.number); }
    /// Some numbers as `number` writes them.
    static std::string numbers(std::initializer_list<unsigned> some)
    {
        return joined(
            some, [](unsigned each) { return std::to_string(each); }, ", ");
    }

private:
    std::shared_ptr<MessageQueue> queue = std::make_shared<MessageQueue>(1024);
};
