#pragma once

#include <cstdint>
#include <memory>
#include <typeinfo>
#include <utility>

#include "platform/Event.h"
#include "platform/Export.h"

/// What a message owns besides its two parameters: one value of any movable type, freed with the message unless the
/// handler moves it out.
class ORV_API Payload
{
public:
    Payload() = default;

    template <class Value>
    static Payload of(Value value)
    {
        Payload payload;
        payload.holder = std::make_unique<Holder<Value>>(std::move(value));
        return payload;
    }

    /// The value, or null if the payload is empty or holds another type.
    template <class Value>
    Value* get()
    {
        if (!holder || holder->type != typeid(Value)) return nullptr;
        return &static_cast<Holder<Value>&>(*holder).value;
    }

    bool isEmpty() const { return !holder; }

private:
    struct AnyHolder {
        explicit AnyHolder(const std::type_info& t) : type(t) {}
        virtual ~AnyHolder() = default;
        const std::type_info& type;
    };

    template <class Value>
    struct Holder final : AnyHolder {
        explicit Holder(Value&& v) : AnyHolder(typeid(Value)), value(std::move(v)) {}
        Value value;
    };

    std::unique_ptr<AnyHolder> holder;
};

/// Releases the thread that waits for a message. It is part of the message and sets the event when it is destroyed, so
/// the thread goes on whether the message was handled or freed by a stopped worker.
class Answer
{
public:
    Answer() = default;
    explicit Answer(Event& waiter) : event(&waiter) {}
    Answer(Answer&& other) noexcept : event(std::exchange(other.event, nullptr)) {}
    Answer& operator=(Answer&& other) noexcept
    {
        std::swap(event, other.event);
        return *this;
    }
    ~Answer()
    {
        if (event != nullptr) event->set();
    }

private:
    Event* event = nullptr;
};

/// A numbered message: two 32-bit parameters, and an owned payload for arguments that do not fit. The parameters never
/// hold pointers.
struct Message {
    unsigned int number = 0;
    std::uint32_t wparam = 0;
    std::int32_t lparam = 0;
    Answer answer{};  // before the payload, so that the payload is destroyed before the waiting thread goes on
    Payload payload{};
};
