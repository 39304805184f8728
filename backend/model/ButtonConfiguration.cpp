#include "backend/model/ButtonConfiguration.h"

#include <algorithm>
#include <string>

#include "backend/xml/XmlWriter.h"

namespace Backend
{
namespace
{
using FunctionManagement::Function;
using FunctionManagement::FunctionFactory;
using FunctionManagement::NO_FUNCTION;

constexpr const char* FUNCTION = "Function";
constexpr const char* DOWN = "Down";
constexpr const char* UP = "Up";

std::string tabs(int count) { return std::string(static_cast<std::size_t>(count), '\t'); }

void writeSlot(std::ostream& out, int indent, const char* tag, const Function* function)
{
    if (function == nullptr) return;
    out << tabs(indent) << xmlStartTag(tag) << '\n';
    function->writeXml(out, indent + 1);
    out << tabs(indent) << xmlEndTag(tag) << '\n';
}

/// Makes the function of the first element in `slot`.
std::unique_ptr<Function> readSlot(const XmlElement& slot, const FunctionFactory& createFunction)
{
    XmlElement first;
    forEachElement(slot, [&](const XmlElement& child) {
        if (!first.hasElement()) first = child;
    });
    return first.hasElement() ? createFunction(first) : nullptr;
}

ButtonFunction readEntry(const XmlElement& element, const FunctionFactory& createFunction)
{
    ButtonFunction entry;
    entry.keepSending = element.getBoolAttribute("keepSending", false);
    forEachElement(element, [&](const XmlElement& slot) {
        if (slot.getTagName() == DOWN && !entry.downFunction) entry.downFunction = readSlot(slot, createFunction);
        if (slot.getTagName() == UP && !entry.upFunction) entry.upFunction = readSlot(slot, createFunction);
    });
    return entry;
}
}  // namespace

void ButtonConfiguration::setFunction(std::unique_ptr<Function> ButtonFunction::*slot, std::size_t index,
                                      std::unique_ptr<Function> function)
{
    if (index > entries.size()) return;
    if (index == entries.size()) entries.emplace_back();
    entries[index].*slot = std::move(function);
}

void ButtonConfiguration::setDownFunction(std::unique_ptr<Function> function, std::size_t index)
{
    setFunction(&ButtonFunction::downFunction, index, std::move(function));
}

void ButtonConfiguration::setUpFunction(std::unique_ptr<Function> function, std::size_t index)
{
    setFunction(&ButtonFunction::upFunction, index, std::move(function));
}

std::string_view ButtonConfiguration::getDownFunctionType(std::size_t index) const
{
    return index < entries.size() ? typeOf(entries[index].downFunction) : NO_FUNCTION;
}

std::string_view ButtonConfiguration::getUpFunctionType(std::size_t index) const
{
    return index < entries.size() ? typeOf(entries[index].upFunction) : NO_FUNCTION;
}

bool ButtonConfiguration::isEmpty() const { return std::ranges::none_of(entries, &ButtonFunction::isUsed); }

bool ButtonConfiguration::hasSameEntries(const ButtonConfiguration& other) const
{
    return (isEmpty() && other.isEmpty()) || std::ranges::equal(entries, other.entries);
}

void ButtonConfiguration::writeEntries(std::ostream& out, int indent) const
{
    for (const ButtonFunction& entry : entries) {
        out << tabs(indent + 2) << xmlOpenTag(FUNCTION) << xmlBoolAttribute("keepSending", entry.keepSending)
            << xmlCloseOpen() << '\n';
        writeSlot(out, indent + 3, DOWN, entry.downFunction.get());
        writeSlot(out, indent + 3, UP, entry.upFunction.get());
        out << tabs(indent + 2) << xmlEndTag(FUNCTION) << '\n';
    }
}

void ButtonConfiguration::readEntries(const XmlElement& element, const FunctionFactory& createFunction)
{
    forEachElement(element, [&](const XmlElement& child) {
        if (child.getTagName() == FUNCTION) entries.push_back(readEntry(child, createFunction));
    });
}
}  // namespace Backend
