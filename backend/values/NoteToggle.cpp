#include "backend/values/NoteToggle.h"

#include "backend/xml/Text.h"
#include "backend/xml/Words.h"

namespace
{
using Mode = NoteToggle::Mode;
constexpr auto MODES = std::to_array<Word<Mode>>({{Mode::off, "off"}, {Mode::type1, "type1"}, {Mode::type2, "type2"}});
}  // namespace

NoteToggle NoteToggle::fromXmlString(std::string_view text)
{
    return {readWord(MODES, Text::trim(text)).value_or(Mode::off)};
}

std::string NoteToggle::toXmlString() const { return std::string(printWord(MODES, mode).value_or("off")); }
