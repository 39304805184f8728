#pragma once

#include <memory>

#include "backend/model/Function.h"

namespace Backend
{
/// What a key or a button does when it goes down and when it comes up. A null function does nothing. A copy holds
/// clones.
struct ButtonFunction {
    bool keepSending = false;  ///< the down function runs again on every auto-repeat
    std::unique_ptr<FunctionManagement::Function> downFunction{};
    std::unique_ptr<FunctionManagement::Function> upFunction{};

    ButtonFunction() = default;
    ButtonFunction(const ButtonFunction& other);
    ButtonFunction(ButtonFunction&&) noexcept = default;
    ButtonFunction& operator=(ButtonFunction other) noexcept;
    ~ButtonFunction() = default;

    /// Whether it does anything.
    bool isUsed() const;
    /// An empty slot is equal to a function that does nothing.
    bool operator==(const ButtonFunction& other) const;
};

/// The type name, NO_FUNCTION for an empty slot.
std::string_view typeOf(const std::unique_ptr<FunctionManagement::Function>& function);
}  // namespace Backend
