#include "backend/model/ButtonFunction.h"

#include <utility>

namespace Backend
{
namespace
{
std::unique_ptr<FunctionManagement::Function> clone(const std::unique_ptr<FunctionManagement::Function>& function)
{
    return function ? function->clone() : nullptr;
}

bool doesNothing(const std::unique_ptr<FunctionManagement::Function>& function)
{
    return typeOf(function) == FunctionManagement::NO_FUNCTION;
}

bool isSame(const std::unique_ptr<FunctionManagement::Function>& one,
            const std::unique_ptr<FunctionManagement::Function>& other)
{
    if (doesNothing(one) || doesNothing(other)) return doesNothing(one) && doesNothing(other);
    return one->equals(*other);
}
}  // namespace

std::string_view typeOf(const std::unique_ptr<FunctionManagement::Function>& function)
{
    return function ? function->getType() : FunctionManagement::NO_FUNCTION;
}

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

bool ButtonFunction::isUsed() const { return !doesNothing(downFunction) || !doesNothing(upFunction); }

bool ButtonFunction::operator==(const ButtonFunction& other) const
{
    return keepSending == other.keepSending && isSame(downFunction, other.downFunction) &&
           isSame(upFunction, other.upFunction);
}
}  // namespace Backend
