#include "backend/sections/RecoveryState.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <utility>

#include "backend/xml/XmlDocument.h"
#include "backend/xml/XmlWriter.h"

namespace Backend
{
namespace
{
constexpr int VERSION = 1;
constexpr std::size_t MOST_STEPS = 100;

// Paths may have any bytes, a document may not.
constexpr char ESCAPE = '%';
constexpr int HEX = 16;

bool isPlain(char character) { return character >= ' ' && character <= '~' && character != ESCAPE; }

std::string escapePath(std::string_view path)
{
    constexpr std::string_view DIGITS = "0123456789abcdef";
    std::string text;
    for (const char character : path) {
        const auto byte = static_cast<unsigned char>(character);
        if (isPlain(character))
            text += character;
        else
            text += {ESCAPE, DIGITS[byte / HEX], DIGITS[byte % HEX]};
    }
    return text;
}

std::string readPath(std::string_view text)
{
    std::string path;
    for (std::size_t at = 0; at < text.size(); ++at) {
        unsigned byte = 0;
        const bool isEscaped = text[at] == ESCAPE && at + 2 < text.size();
        if (isEscaped) std::from_chars(text.data() + at + 1, text.data() + at + 3, byte, HEX);
        path += isEscaped ? static_cast<char>(byte) : text[at];
        if (isEscaped) at += 2;
    }
    return path;
}

void addBlock(std::string& text, const std::string& block) { text += std::to_string(block.size()) + '\n' + block; }

/// Nothing if the block is not complete.
std::optional<std::string_view> takeBlock(std::string_view& text)
{
    std::size_t size = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), size);
    const auto begin = static_cast<std::size_t>(end - text.data()) + 1;
    if (error != std::errc() || begin > text.size() || *end != '\n' || size > text.size() - begin) return std::nullopt;
    const std::string_view block = text.substr(begin, size);
    text.remove_prefix(begin + size);
    return block;
}

void addDraft(std::string& text, const std::string& bank, int number, const Draft& draft)
{
    addBlock(text, xmlOpenTag("Draft") + xmlStringAttribute("bank", escapePath(bank)) +
                       xmlIntAttribute("number", number) + xmlCloseOpen() + '\n' +
                       draft.history.getLatest(MOST_STEPS).toXml() + xmlEndTag("Draft") + '\n');
    addBlock(text, draft.text);
}

std::optional<RecoveryState::Program> takeDraft(std::string_view& text)
{
    const auto block = takeBlock(text);
    const auto program = takeBlock(text);
    if (!block || !program) return std::nullopt;
    const XmlElement element = XmlDocument(*block, XmlDocument::Source::text).getRoot();
    const auto draft = std::make_shared<Draft>();
    draft->text = *program;
    bool isComplete = element.getTagName() == "Draft";
    forEachElement(element, [&](const XmlElement& child) { isComplete = isComplete && draft->history.readXml(child); });
    if (!isComplete) return std::nullopt;
    return RecoveryState::Program{readPath(element.getAttribute("bank")), element.getIntAttribute("number", 0), draft};
}
}  // namespace

bool RecoveryState::hasEdits() const
{
    return program.history.isEdited() ||
           std::ranges::any_of(drafts, [](const Program& other) { return !other.draft->text.empty(); });
}

std::string RecoveryState::toText() const
{
    std::string text;
    addBlock(text, xmlOpenTag("Recovery") + xmlIntAttribute("version", VERSION) +
                       xmlStringAttribute("screens", screens) +
                       xmlIntAttribute("drafts", static_cast<int>(drafts.size())) + xmlCloseEmpty() + '\n');
    addDraft(text, bank, number, program);
    for (const Program& other : drafts) addDraft(text, other.bank, other.number, *other.draft);
    return text;
}

std::optional<RecoveryState> RecoveryState::fromText(std::string_view text)
{
    const auto head = takeBlock(text);
    const XmlElement element = head ? XmlDocument(*head, XmlDocument::Source::text).getRoot() : XmlElement();
    if (element.getTagName() != "Recovery" || element.getIntAttribute("version", 0) != VERSION) return std::nullopt;
    auto current = takeDraft(text);
    if (!current) return std::nullopt;
    RecoveryState state{.bank = std::move(current->bank),
                        .number = current->number,
                        .screens = element.getAttribute("screens"),
                        .program = *current->draft};
    for (int count = element.getIntAttribute("drafts", 0); count > 0; --count) {
        auto draft = takeDraft(text);
        if (!draft) return std::nullopt;
        state.drafts.push_back(std::move(*draft));
    }
    return text.empty() ? std::optional(std::move(state)) : std::nullopt;
}
}  // namespace Backend
