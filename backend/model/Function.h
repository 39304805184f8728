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

/// The type name of an empty slot: no function at all, or one that does nothing.
inline constexpr std::string_view NO_FUNCTION = "NoFunction";

/// One action that can be bound to a key, a button or an axis. It has exactly one owner; copies are clones. It holds
/// its parameters and a reference to the backend, which must outlive it, and keeps no state between executions.
class Function
{
public:
    virtual ~Function() = default;

    /// Same class and same parameters.
    virtual bool equals(const Function& other) const = 0;
    virtual std::unique_ptr<Function> clone() const = 0;

    /// Performs the action. The backend thread.
    virtual void execute() = 0;

    /// The name of the function's element in files.
    virtual std::string_view getType() const = 0;
    virtual void accept(FunctionVisitor& visitor) = 0;

    /// Writes the function's element, a line of its own, after `indent` TABs.
    virtual void writeXml(std::ostream& out, int indent) const = 0;

    /// Which note of which zone it plays; none for most.
    virtual FunctionNoteSpan getNoteSpan() const { return {}; }

    /// The number of the sentence that explains it, see HelpTexts.h.
    virtual int getHelpId() const = 0;

protected:
    Function() = default;
    Function(const Function&) = default;
    Function& operator=(const Function&) = default;
};

/// Makes a function from its element; null for an element that is none.
using FunctionFactory = std::function<std::unique_ptr<Function>(const XmlElement& element)>;
}  // namespace Backend::FunctionManagement
