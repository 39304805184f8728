#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Whether the notes of a layer toggle, and in which of two ways.
struct NoteToggle {
    enum class Mode : std::int32_t { off = 0, type1 = 1, type2 = 2 };

    Mode mode = Mode::off;

    /// From "type1" or "type2", with blanks around it; any other text is off.
    static NoteToggle fromXmlString(std::string_view text);
    std::string toXmlString() const;

    bool operator==(const NoteToggle&) const = default;
};
