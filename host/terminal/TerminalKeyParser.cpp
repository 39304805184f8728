#include "host/terminal/TerminalKeyParser.h"

#include <utility>

#include "host/terminal/TerminalKeyCodes.h"

namespace Host
{
namespace
{
constexpr char ESCAPE = '\x1B';
constexpr std::int32_t ESCAPE_KEY = 27;
constexpr std::size_t LONGEST_SEQUENCE = 32;

/// The number of bytes that were parsed, 0 if the sequence is not complete, and its key, if it has one.
struct Step {
    std::size_t size = 0;
    std::optional<Key> key{};
};

/// Of a sequence that begins with "ESC [".
Step stepOfSequence(std::string_view text)
{
    std::size_t end = 2;
    if (text.substr(end).starts_with('[')) {
        if (text.size() < 4) return {};
        return {4, keyOfConsoleSequence(text[3])};
    }
    while (end < text.size() && text[end] >= ' ' && text[end] < '@') ++end;
    if (end > LONGEST_SEQUENCE) return {end};
    if (end == text.size()) return {};
    if (text[end] < ' ' || text[end] == '\x7F') return {end};
    return {end + 1, keyOfSequence(text.substr(2, end - 2), text[end])};
}

Step stepOfAlt(std::string_view text)
{
    auto key = keyOfCharacter(text[1]);
    if (key) key->alt = true;
    return {2, key};
}

Step step(std::string_view text)
{
    if (text[0] != ESCAPE) return {1, keyOfCharacter(text[0])};
    if (text.size() < 2) return {};
    if (text[1] == ESCAPE) return {1, Key{.keyCode = ESCAPE_KEY}};
    if (text[1] == '[') return stepOfSequence(text);
    if (text[1] == 'O') return text.size() < 3 ? Step{} : Step{3, keyOfKeypad(text[2])};
    return stepOfAlt(text);
}
}  // namespace

std::vector<Key> TerminalKeyParser::parse(std::string_view bytes)
{
    std::vector<Key> keys;
    pending += bytes;
    std::string_view rest = pending;
    while (!rest.empty()) {
        const Step next = step(rest);
        if (next.size == 0) break;
        if (next.key) keys.push_back(*next.key);
        rest.remove_prefix(next.size);
    }
    pending.erase(0, pending.size() - rest.size());
    return keys;
}

std::vector<Key> TerminalKeyParser::finish()
{
    const std::string text = std::exchange(pending, {});
    if (text.size() == 1) return {Key{.keyCode = ESCAPE_KEY}};
    if (text.size() == 2) return {stepOfAlt(text).key.value_or(Key{.keyCode = ESCAPE_KEY})};
    return {};
}
}  // namespace Host
