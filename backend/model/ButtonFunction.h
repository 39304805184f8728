#pragma once

#include <memory>

#include "backend/model/Function.h"

namespace Backend
{
/// The functions that a key or a button executes when it is pressed and released; null for none. A copy has copies of
/// them.
struct ButtonFunction {
    bool keepSending = false;  ///< the down function is executed again at every repeat
    std::unique_ptr<FunctionManagement::Function> downFunction{};
    std::unique_ptr<FunctionManagement::Function> upFunction{};

    ButtonFunction() = default;
    ButtonFunction(const ButtonFunction& other);
    ButtonFunction(ButtonFunction&&) noexcept = default;
    ButtonFunction& operator=(ButtonFunction other) noexcept;
    ~ButtonFunction() = default;

    /// Whether there is a function.
    bool isUsed() const;
    /// No function is equal to a function that does nothing.
    bool operator==(const ButtonFunction& other) const;
};

/// The type name of a function, NO_FUNCTION for null.
std::string_view typeOf(const std::unique_ptr<FunctionManagement::Function>& function);
}  // namespace Backend
