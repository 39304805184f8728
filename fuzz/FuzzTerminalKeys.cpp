// Any bytes of a terminal become keys that have names, and never wait for more than a sequence may be long.
#include "fuzz/Fuzzing.h"
#include "host/terminal/TerminalKeyParser.h"

namespace
{
void check(const std::vector<Key>& keys)
{
    for (const Key& key : keys) require(Key::fromXmlString(key.toXmlString()) == key);
}
}  // namespace

void tryInput(std::string_view text)
{
    Host::TerminalKeyParser whole;
    check(whole.parse(text));
    check(whole.finish());
    require(!whole.isWaiting());

    Host::TerminalKeyParser pieces;
    for (const char& byte : text) check(pieces.parse({&byte, 1}));
    check(pieces.finish());
}
