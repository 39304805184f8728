#pragma once

#include <cstdint>
#include <span>
#include <tuple>
#include <type_traits>

#include "backend/values/OrvMidiMessage.h"
#include "platform/DbgStream.h"
#include "platform/Message.h"

namespace Backend
{
/// A row of a command table: a message number, the command's name, and what it does to its target.
template <class Target>
struct Command {
    unsigned int number;
    const char* name;
    void (*carryOut)(Target& target, Message& message);
};

/// Up to two small values travel in the message's parameters; everything else in its payload.
template <class... Arguments>
inline constexpr bool FITS_PARAMETERS = sizeof...(Arguments) <= 2 &&
                                        ((std::is_integral_v<Arguments> || std::is_enum_v<Arguments>)&&...);

/// The message of a command with its arguments.
template <class... Arguments>
Message pack(unsigned int number, Arguments... arguments)
{
    Message message{.number = number};
    if constexpr (FITS_PARAMETERS<Arguments...>) {
        const auto words = std::tuple<Arguments...>(arguments...);
        if constexpr (sizeof...(Arguments) > 0) message.wparam = static_cast<std::uint32_t>(std::get<0>(words));
        if constexpr (sizeof...(Arguments) > 1) message.lparam = static_cast<std::int32_t>(std::get<1>(words));
    } else {
        message.payload = Payload::of(std::tuple<Arguments...>(std::move(arguments)...));
    }
    return message;
}

/// An event as the one or the other command, whichever can carry it whole.
inline Message packEvent(unsigned int viaParam, unsigned int viaAlloc, const MidiEngine::OrvMidiMessage& event)
{
    if (event.fitsParameters()) return {.number = viaParam, .wparam = event.getWparam(), .lparam = event.getLparam()};
    return pack(viaAlloc, event);
}

namespace Detail
{
template <class Target, class... Arguments, class Operation>
void apply(Target& target, Message& message, Operation operation)
{
    if constexpr (sizeof...(Arguments) == 0) {
        (target.*operation)();
    } else if constexpr (!FITS_PARAMETERS<Arguments...>) {
        if (auto* arguments = message.payload.get<std::tuple<Arguments...>>())
            std::apply([&](auto&... argument) { (target.*operation)(std::move(argument)...); }, *arguments);
    } else if constexpr (sizeof...(Arguments) == 1) {
        (target.*operation)(static_cast<Arguments>(message.wparam)...);
    } else {
        [&]<class First, class Second>(std::type_identity<std::tuple<First, Second>>) {
            (target.*operation)(static_cast<First>(message.wparam), static_cast<Second>(message.lparam));
        }(std::type_identity<std::tuple<Arguments...>>{});
    }
}

template <class Operation>
struct Signature;

template <class Owner, class Result, class... Arguments>
struct Signature<Result (Owner::*)(Arguments...)> {
    using Target = Owner;

    template <Result (Owner::*operation)(Arguments...)>
    static void carryOut(Owner& target, Message& message)
    {
        apply<Owner, std::remove_cvref_t<Arguments>...>(target, message, operation);
    }
};
}  // namespace Detail

/// The row of a command that calls `operation` with the arguments its signature names.
template <auto operation>
constexpr auto command(unsigned int number, const char* name)
{
    using Signature = Detail::Signature<decltype(operation)>;
    return Command<typename Signature::Target>{number, name, &Signature::template carryOut<operation>};
}

/// The row of a command that carries an event in its two parameters.
template <auto operation>
constexpr auto eventCommand(unsigned int number, const char* name)
{
    using Target = typename Detail::Signature<decltype(operation)>::Target;
    return Command<Target>{number, name, [](Target& target, Message& message) {
                               (target.*operation)(MidiEngine::OrvMidiMessage(message.wparam, message.lparam));
                           }};
}

/// Does what the message says to the target; a number without a row is told to the debug stream and ignored.
template <class Target>
void carryOut(std::span<const Command<Target>> table, Target& target, Message& message)
{
    for (const auto& row : table)
        if (row.number == message.number) return row.carryOut(target, message);
    WindowsLib::DbgStream() << "message " << message.number << ": no such command, ignored";
}
}  // namespace Backend
