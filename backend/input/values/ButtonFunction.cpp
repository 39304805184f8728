#include "backend/input/values/ButtonFunction.h"

#include <utility>

namespace Backend
{
namespace
{
std::unique_ptr<FunctionManagement::Function> clone(const std::unique_ptr<FunctionManagement::Function>& function)
{
    return function ? function->clone() : nullptr;
}
}  // namespace

ButtonFunction::ButtonFunction(const ButtonFunction& other)
    : keepSending(other.keepSending), downFunction(clone(other.downFunction)), upFunction(clone(other.upFunction))
{
}

ButtonFunction& ButtonFunction::operator=(ButtonFunction other) noexcept
{
    keepSending = other.keepSending;
    downFunction = std::move(other.downFunction);
    upFunction = std::move(other.upFunction);
    return *this;
}
}  // namespace Backend
