#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/Export.h"

namespace Backend::Display
{
/// The text of the log, in a buffer of fixed size: when it is full, the older half is removed, even within a line. It
/// keeps track of how much the listener has received.
class ORV_API DisplayText
{
public:
    /// The size of the buffer, with the NUL at the end of the text.
    static constexpr std::size_t CAPACITY = 30000;
    /// A text of that many characters or more is dropped.
    static constexpr std::size_t TOO_LONG = 15000;

    DisplayText() { text.reserve(CAPACITY); }

    /// Appends text. If the older half was removed, the listener counts as having all of the rest, in its longer copy.
    void append(std::string_view piece);

    const std::string& all() const { return text; }

    /// The text that the listener has not received; it counts as received then.
    const char* takeUnsent();
    bool hasUnsent() const { return sentLength < text.size(); }
    /// The whole text; it counts as received then.
    const char* takeAll();

private:
    std::string text;
    std::size_t sentLength = 0;
};
}  // namespace Backend::Display
