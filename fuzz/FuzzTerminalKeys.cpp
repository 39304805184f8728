// Any bytes of a terminal become keys that have names, and never wait for more than a sequence may be long.
#include <cstdint>
#include <cstdlib>

#include "host/terminal/TerminalKeyParser.h"

namespace
{
void require(bool truth)
{
    if (!truth) std::abort();
}

void check(const std::vector<Key>& keys)
{
    for (const Key& key : keys) require(Key::fromXmlString(key.toXmlString()) == key);
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Host::TerminalKeyParser whole;
    check(whole.parse({reinterpret_cast<const char*>(data), size}));
    check(whole.finish());
    require(!whole.isWaiting());

    Host::TerminalKeyParser pieces;
    for (std::size_t at = 0; at < size; ++at) check(pieces.parse({reinterpret_cast<const char*>(&data[at]), 1}));
    check(pieces.finish());
    return 0;
}
