#pragma once

#include <memory>

#include "backend/input/functions/Function.h"

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
};
}  // namespace Backend
