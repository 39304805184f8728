#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "backend/values/Key.h"

namespace Host
{
/// Parses the bytes that a terminal sends into keys, as a keyboard of the US layout has them: characters, with Shift
/// for capitals and upper signs, Control with a letter, and the escape sequences of xterm, the VT220 and the Linux
/// console for other keys, with their modifiers. An escape before a character means Alt. Other bytes are ignored.
class TerminalKeyParser
{
public:
    /// The keys that are complete with these bytes.
    std::vector<Key> parse(std::string_view bytes);

    /// Whether a sequence has begun that is not complete.
    bool isWaiting() const { return !pending.empty(); }

    /// Ends the sequence: an escape character alone is the Escape key.
    std::vector<Key> finish();

private:
    std::string pending;
};
}  // namespace Host
