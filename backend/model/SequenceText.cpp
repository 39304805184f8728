// Reading and printing the text of a sequence.

#include <array>

#include "backend/model/SequenceSetting.h"
#include "backend/xml/Text.h"

namespace Backend::SequenceManagement
{
namespace
{
constexpr int WORDS = 3;  // of an offset; further words are ignored

/// Calls `take` for each part. An empty text is one empty part; a delimiter at the end adds none.
template <class Take>
void forEachPart(std::string_view text, char delimiter, Take&& take)
{
    do {
        take(Text::nextToken(text, delimiter));
    } while (!text.empty());
}

void readWord(SequenceOffset& offset, std::string_view word)
{
    const auto number = [&](std::size_t from) { return Text::parseInteger(word.substr(from)).value_or(0); };
    const char kind = word.empty() ? '-' : word.front();
    if (kind == 'V' || kind == 'v') {
        offset.velocity = number(1);
    } else if (kind == 'L' || kind == 'l') {
        offset.length = number(1);
    } else if (word.empty() || word == "-") {
        offset.rest = true;
    } else {
        offset.note = number(0);
        offset.rest = false;
    }
}

SequenceOffset parseOffset(std::string_view text)
{
    SequenceOffset offset;
    int words = 0;
    forEachPart(text, ' ', [&](std::string_view word) {
        if (++words <= WORDS) readWord(offset, word);
    });
    return offset;
}

SequenceNode parseNode(std::string_view text)
{
    SequenceNode node;
    forEachPart(text, '|', [&](std::string_view offset) { node.push_back(parseOffset(offset)); });
    return node;
}

std::string printOffset(const SequenceOffset& offset)
{
    std::string text = offset.rest ? "-" : std::to_string(offset.note);
    if (!offset.rest && offset.velocity != 0) text += " V" + std::to_string(offset.velocity);
    if (offset.length != SequenceOffset::WHOLE_NOTE) text += " L" + std::to_string(offset.length);
    return text;
}
}  // namespace

std::vector<SequenceNode> parseSequence(std::string_view text)
{
    std::vector<SequenceNode> nodes;
    if (Text::trim(text).empty()) return nodes;
    forEachPart(text, ',', [&](std::string_view node) { nodes.push_back(parseNode(node)); });
    return nodes;
}

std::string printSequence(const std::vector<SequenceNode>& nodes)
{
    std::string text;
    for (const SequenceNode& node : nodes) {
        if (&node != &nodes.front()) text += ',';
        for (const SequenceOffset& offset : node) {
            if (&offset != &node.front()) text += '|';
            text += printOffset(offset);
        }
    }
    return text;
}
}  // namespace Backend::SequenceManagement
