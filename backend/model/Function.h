#pragma once

#include <functional>
#include <memory>
#include <ostream>
#include <string_view>

#include "backend/model/FunctionNoteSpan.h"
#include "platform/Export.h"

class XmlElement;

namespace Backend
{
class OrvIF;
}

namespace Backend::FunctionManagement
{
class FunctionVisitor;

/// The type name for no function, and for a function that does nothing.
inline constexpr std::string_view NO_FUNCTION = "NoFunction";

/// An action that can be bound to a key or a button, with its parameters. It has one owner; copies are made with
/// `clone`. It refers to the backend, which must outlive it, and keeps no state between executions.
class Function
{
public:
    virtual ~Function() = default;

    /// Whether class and parameters are equal.
    virtual bool equals(const Function& other) const = 0;
    virtual std::unique_ptr<Function> clone() const = 0;

    /// Executes the action. The backend thread.
    virtual void execute() = 0;

    /// The name of the function's element in files, its type name.
    virtual std::string_view getType() const = 0;
    virtual void accept(FunctionVisitor& visitor) = 0;

    /// Writes the function's element as a line, indented by `indent` TABs.
    virtual void writeXml(std::ostream& out, int indent) const = 0;

    /// The note that it plays and its zone; none for most functions.
    virtual FunctionNoteSpan getNoteSpan() const { return {}; }

    /// The number of its help text, see HelpTexts.h.
    virtual int getHelpId() const = 0;

protected:
    Function() = default;
    Function(const Function&) = default;
    Function& operator=(const Function&) = default;
};

/// Makes a function from its element; null for an unknown element.
using FunctionFactory = std::function<std::unique_ptr<Function>(const XmlElement& element)>;
}  // namespace Backend::FunctionManagement
