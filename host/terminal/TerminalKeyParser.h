#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "backend/values/Key.h"

namespace Host
{
/// Makes keys of what a terminal sends, as a keyboard of the US layout has them: characters, with Shift for capitals
/// and upper signs, Control with a letter, and the escape sequences of xterm, the VT220 and the Linux console for the
/// others, with their modifiers. An escape in front of a character is Alt. What is none of that is passed over.
class TerminalKeyParser
{
public:
    /// The keys that are complete with these bytes.
    std::vector<Key> take(std::string_view bytes);

    /// Whether a sequence has begun that may still go on.
    bool isWaiting() const { return !pending.empty(); }

    /// No more comes: an escape that stands alone was the key itself.
    std::vector<Key> finish();

private:
    std::string pending;
};
}  // namespace Host
