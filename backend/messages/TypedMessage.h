#pragma once

#include <algorithm>
#include <array>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <tuple>
#include <type_traits>
#include <utility>

#include "backend/messages/MessageManager.h"
#include "backend/values/OrvMidiMessage.h"
#include "platform/DbgStream.h"
#include "platform/Message.h"
#include "platform/WindowHandle.h"

namespace Backend
{
namespace MessageCode
{
/// The types that fit into one 32-bit parameter of a message: integers, enumerations, and types with a packed form.
template <class Value>
concept Word = (std::is_integral_v<Value> && sizeof(Value) <= sizeof(std::uint32_t)) || std::is_enum_v<Value>;
template <class Value>
concept PackedWord = requires(const Value& value)
{
    {
        value.getPacked()
        } -> std::same_as<std::uint32_t>;
    {
        Value::fromPacked(std::uint32_t{})
        } -> std::same_as<Value>;
};
template <class Value>
inline constexpr bool IS_WORD = Word<Value> || PackedWord<Value>;

template <class Value>
constexpr std::uint32_t toWord(const Value& value)
{
    if constexpr (Word<Value>)
        return static_cast<std::uint32_t>(value);
    else
        return value.getPacked();
}

template <class Value>
constexpr Value fromWord(std::uint32_t word)
{
    if constexpr (Word<Value>)
        return static_cast<Value>(word);
    else
        return Value::fromPacked(word);
}

template <class... Arguments>
inline constexpr std::size_t WORDS = (std::size_t{0} + ... + (IS_WORD<Arguments> ? 1 : 0));
/// At most two words, which are the parameters, and one other value, the payload. Otherwise the payload is a tuple.
template <class... Arguments>
inline constexpr bool IS_DIRECT = WORDS<Arguments...> <= 2 && sizeof...(Arguments) - WORDS<Arguments...> <= 1;
}  // namespace MessageCode

/// The declaration of a message: its number, its name for the debug stream, and the types of its arguments. Calling it
/// with arguments makes the message; `on` makes a row for its receiver. Both refuse other types at compile time.
template <class... Arguments>
struct TypedMessage {
    unsigned int number;
    const char* name;

    constexpr operator unsigned int() const { return number; }

    Message operator()(Arguments... arguments) const
    {
        Message message{.number = number};
        if constexpr (MessageCode::IS_DIRECT<Arguments...>) {
            [[maybe_unused]] std::size_t words = 0;
            const auto put = [&]<class Argument>(Argument& argument) {
                if constexpr (!MessageCode::IS_WORD<Argument>)
                    message.payload = Payload::of(std::move(argument));
                else if (words++ == 0)
                    message.wparam = MessageCode::toWord(argument);
                else
                    message.lparam = static_cast<std::int32_t>(MessageCode::toWord(argument));
            };
            (put(arguments), ...);
        } else {
            message.payload = Payload::of(std::tuple<Arguments...>(std::move(arguments)...));
        }
        return message;
    }

    /// Calls `operation` with the arguments; not if the payload is missing.
    template <class Operation>
    static void deliver(Message& message, Operation&& operation)
    {
        if constexpr (MessageCode::IS_DIRECT<Arguments...>) {
            if (!(hasPayload<Arguments>(message) && ...)) return;
            std::size_t words = 0;
            std::apply(operation,
                       std::tuple<decltype(take<Arguments>(message, words))...>{take<Arguments>(message, words)...});
        } else if (auto* const arguments = message.payload.get<std::tuple<Arguments...>>()) {
            std::apply([&](Arguments&... each) { operation(std::move(each)...); }, *arguments);
        }
    }

private:
    template <class Argument>
    static bool hasPayload(Message& message)
    {
        return MessageCode::IS_WORD<Argument> || message.payload.get<Argument>() != nullptr;
    }

    template <class Argument>
    static decltype(auto) take(Message& message, std::size_t& words)
    {
        if constexpr (MessageCode::IS_WORD<Argument>)
            return MessageCode::fromWord<Argument>(words++ == 0 ? message.wparam
                                                                : static_cast<std::uint32_t>(message.lparam));
        else
            return std::move(*message.payload.get<Argument>());
    }
};

/// An event in the two parameters, without the cell of a control and without a pulse, which do not fit.
template <>
struct TypedMessage<MidiEngine::OrvMidiMessage> {
    unsigned int number;
    const char* name;

    constexpr operator unsigned int() const { return number; }

    Message operator()(const MidiEngine::OrvMidiMessage& event) const
    {
        return {.number = number, .wparam = event.getWparam(), .lparam = event.getLparam()};
    }

    template <class Operation>
    static void deliver(Message& message, Operation&& operation)
    {
        operation(MidiEngine::OrvMidiMessage(message.wparam, message.lparam));
    }
};

/// A whole event, as a copy.
struct WholeEvent {
    MidiEngine::OrvMidiMessage event;
};

/// An event as one of two messages: in the parameters if it fits, else as a copy.
struct EventMessage {
    TypedMessage<MidiEngine::OrvMidiMessage> viaParam;
    TypedMessage<WholeEvent> viaAlloc;

    Message operator()(const MidiEngine::OrvMidiMessage& event) const
    {
        return event.fitsParameters() ? viaParam(event) : viaAlloc({event});
    }
};

/// A message with an answer, for which its sender waits, see `ask`.
template <class Result, class... Arguments>
struct TypedRequest : TypedMessage<std::shared_ptr<Result>, Arguments...> {
};

/// Sends a request with `send` of a worker or the like, and returns the answer; a default one if the worker has
/// stopped. Not on the receiver's thread.
template <class Sender, class Result, class... Arguments>
Result ask(Sender& sender, const TypedRequest<Result, Arguments...>& request,
           std::type_identity_t<Arguments>... arguments)
{
    const auto answer = std::make_shared<Result>();
    sender.send(request(std::shared_ptr(answer), std::move(arguments)...));
    return std::move(*answer);
}

/// Posts a message to the window, if there is one.
template <class... Arguments>
void notify(const WindowHandle& window, const TypedMessage<Arguments...>& type,
            const std::type_identity_t<Arguments>&... arguments)
{
    if (window) window.post(type(arguments...));
}

/// A row of a message table: executes a message.
template <class Target>
struct Command {
    unsigned int number;
    const char* name;
    void (*execute)(Target& target, Message& message);
};

namespace MessageCode
{
template <class Operation>
struct Signature;
template <class Owner, class Result, class... Parameters>
struct Signature<Result (Owner::*)(Parameters...)> {
    using Target = Owner;
};
template <class Owner, class Result, class... Parameters>
struct Signature<Result (Owner::*)(Parameters...) const> {
    using Target = Owner;
};
template <class Owner, class Result, class... Parameters>
struct Signature<Result (*)(Owner&, Parameters...)> {
    using Target = Owner;
};

/// Whether an operation takes exactly these types of arguments, without a conversion.
template <class Operation, class... Arguments>
struct Takes : std::false_type {
};
template <class Argument, class Parameter>
inline constexpr bool IS_TAKEN = std::is_same_v<Argument, std::remove_cvref_t<Parameter>>;
template <class Owner, class Result, class... Parameters, class... Arguments>
requires(sizeof...(Parameters) == sizeof...(Arguments)) struct Takes<Result (Owner::*)(Parameters...), Arguments...>
    : std::bool_constant<(IS_TAKEN<Arguments, Parameters> && ...)> {
};
template <class Owner, class Result, class... Parameters, class... Arguments>
requires(sizeof...(Parameters) ==
         sizeof...(Arguments)) struct Takes<Result (Owner::*)(Parameters...) const, Arguments...>
    : std::bool_constant<(IS_TAKEN<Arguments, Parameters> && ...)> {
};
template <class Owner, class Result, class... Parameters, class... Arguments>
requires(sizeof...(Parameters) == sizeof...(Arguments)) struct Takes<Result (*)(Owner&, Parameters...), Arguments...>
    : std::bool_constant<(IS_TAKEN<Arguments, Parameters> && ...)> {
};

template <class Operation, class... Arguments>
consteval void check(const TypedMessage<Arguments...>&)
{
    static_assert(Takes<Operation, Arguments...>::value, "the operation does not take the arguments of the message");
}
template <class Operation, class Result, class... Arguments>
consteval void checkRequest(const TypedRequest<Result, Arguments...>&)
{
    static_assert(Takes<Operation, Arguments...>::value, "the operation does not take the arguments of the request");
}
}  // namespace MessageCode

/// A row that calls `operation`, a function or a member function of the target, with the arguments of the message. For
/// an inherited member the target must be named.
template <const auto& type, auto operation, class Target = typename MessageCode::Signature<decltype(operation)>::Target>
constexpr auto on()
{
    MessageCode::check<decltype(operation)>(type);
    return Command<Target>{type.number, type.name, [](Target& target, Message& message) {
                               type.deliver(message, [&](auto&&... arguments) {
                                   std::invoke(operation, target, std::forward<decltype(arguments)>(arguments)...);
                               });
                           }};
}

/// The rows of an event in the parameters, and of one as a copy.
template <const EventMessage& type, auto operation>
constexpr auto onParam()
{
    using Target = typename MessageCode::Signature<decltype(operation)>::Target;
    return Command<Target>{type.viaParam.number, type.viaParam.name, [](Target& target, Message& message) {
                               type.viaParam.deliver(message, [&](const MidiEngine::OrvMidiMessage& event) {
                                   std::invoke(operation, target, event);
                               });
                           }};
}
template <const EventMessage& type, auto operation>
constexpr auto onAlloc()
{
    using Target = typename MessageCode::Signature<decltype(operation)>::Target;
    return Command<Target>{type.viaAlloc.number, type.viaAlloc.name, [](Target& target, Message& message) {
                               type.viaAlloc.deliver(message, [&](const WholeEvent& whole) {
                                   std::invoke(operation, target, whole.event);
                               });
                           }};
}

/// A row that answers a request with the result of `operation`.
template <const auto& request, auto operation>
constexpr auto answer()
{
    using Operation = decltype(operation);
    using Target = typename MessageCode::Signature<Operation>::Target;
    MessageCode::checkRequest<Operation>(request);
    return Command<Target>{request.number, request.name, [](Target& target, Message& message) {
                               request.deliver(message, [&](const auto& result, auto&&... arguments) {
                                   *result = std::invoke(operation, target, std::move(arguments)...);
                               });
                           }};
}

/// The rows of two tables.
template <class Target, std::size_t FIRST, std::size_t SECOND>
constexpr std::array<Command<Target>, FIRST + SECOND> operator+(const std::array<Command<Target>, FIRST>& first,
                                                                const std::array<Command<Target>, SECOND>& second)
{
    std::array<Command<Target>, FIRST + SECOND> all{};
    std::ranges::copy(first, all.begin());
    std::ranges::copy(second, all.begin() + FIRST);
    return all;
}

/// Executes the row of the message's number. A number without a row is reported in the debug stream and ignored.
template <class Target>
void execute(std::span<const Command<Target>> table, Target& target, Message& message)
{
    for (const auto& row : table)
        if (row.number == message.number) return row.execute(target, message);
    WindowsLib::DbgStream() << "message " << message.number << ": no such command, ignored";
}
}  // namespace Backend
