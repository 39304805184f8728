#pragma once

#include <functional>
#include <memory>
#include <ostream>

class XmlElement;

namespace Backend::FunctionManagement
{
/// One action that can be bound to a key, a button or an axis. It has exactly one owner; copies are clones.
class Function
{
public:
    virtual ~Function() = default;

    virtual std::unique_ptr<Function> clone() const = 0;

    /// Writes the function's element, a line of its own, behind `indent` TABs.
    virtual void writeXml(std::ostream& out, int indent) const = 0;

protected:
    Function() = default;
    Function(const Function&) = default;
    Function& operator=(const Function&) = default;
};

/// Makes a function from its element; null for an element that is none.
using FunctionFactory = std::function<std::unique_ptr<Function>(const XmlElement& element)>;
}  // namespace Backend::FunctionManagement
