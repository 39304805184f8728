#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/Export.h"

namespace Backend::Display
{
/// The log, in a buffer that never grows: when it is full its older half goes, wherever that cuts. It knows how much
/// of it the listener has.
class ORV_API DisplayText
{
public:
    /// Room for the text with the NUL at its end.
    static constexpr std::size_t CAPACITY = 30000;
    /// A piece of that many characters or more is dropped.
    static constexpr std::size_t TOO_LONG = 15000;

    DisplayText() { text.reserve(CAPACITY); }

    /// After the older half went the listener counts as having all that is left: it keeps its own longer copy.
    void append(std::string_view piece);

    const std::string& all() const { return text; }

    /// What the listener has not; from then on it has it.
    const char* takeUnsent();
    bool hasUnsent() const { return sentLength < text.size(); }
    /// All of it; from then on the listener has it.
    const char* takeAll();

private:
    std::string text;
    std::size_t sentLength = 0;
};
}  // namespace Backend::Display
