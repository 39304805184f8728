#include "backend/files/BankScanner.h"

namespace Backend
{
namespace
{
constexpr auto NOWHERE = std::string_view::npos;

/// Finds the tags of a document, one after another.
class Scanner
{
public:
    Scanner(std::string_view bank, std::string_view wanted) : text(bank), tag(wanted) {}

    std::optional<ElementLayout> scan()
    {
        bool good = true;
        for (at = text.find('<'); good && at != NOWHERE; at = text.find('<', at)) good = passTag();
        if (good && rootIsClosed) return std::move(layout);
        return std::nullopt;
    }

private:
    bool passTag()
    {
        if (startsWith("<!--")) return passTo("-->", 4);
        if (startsWith("<?")) return passTo("?>", 2);
        if (startsWith("<![CDATA[")) return passTo("]]>", 9);
        if (startsWith("<!")) return depth == 0 && passDocumentType();
        if (startsWith("</")) return passEndTag();
        return passStartTag();
    }

    bool startsWith(std::string_view mark) const { return text.compare(at, mark.size(), mark) == 0; }

    /// Goes to the end of the next `mark`; false if there is none.
    bool passTo(std::string_view mark, std::size_t from)
    {
        const auto found = text.find(mark, at + from);
        if (found == NOWHERE) return false;
        at = found + mark.size();
        return true;
    }

    /// A document type may contain declarations in brackets.
    bool passDocumentType()
    {
        int open = 0;
        do {
            at = text.find_first_of("<>\"'", at);
            if (at == NOWHERE) return false;
            bool good = true;
            if (startsWith("<!--"))
                good = passTo("-->", 4);
            else if (startsWith("<?"))
                good = passTo("?>", 2);
            else if (text[at] == '<' || text[at] == '>')
                open += text[at++] == '<' ? 1 : -1;
            else
                good = passTo(text.substr(at, 1), 1);
            if (!good) return false;
        } while (open > 0);
        return true;
    }

    bool passStartTag()
    {
        const std::size_t begin = at;
        const auto nameEnd = text.find_first_of(" \t\r\n/>", begin);
        if (nameEnd == NOWHERE || (depth == 0 && rootIsClosed)) return false;
        const std::string_view name = text.substr(begin + 1, nameEnd - begin - 1);
        if (!passAttributes()) return false;
        const bool isEmpty = text[at - 2] == '/';

        if (depth == 0) layout.rootName = name;
        if (depth == 1 && name == tag) layout.elements.push_back({begin, at});
        isWanted = depth == 1 ? name == tag : isWanted;
        if (isEmpty && depth == 0) closeRoot(at - 2);
        if (!isEmpty) ++depth;
        return true;
    }

    /// Goes to the end of a start tag; a ">" in quotes does not end it.
    bool passAttributes()
    {
        for (at = text.find_first_of("\"'>", at); at != NOWHERE; at = text.find_first_of("\"'>", at)) {
            const char character = text[at++];
            if (character == '>') return true;
            at = text.find(character, at);
            if (at == NOWHERE) return false;
            ++at;
        }
        return false;
    }

    bool passEndTag()
    {
        const std::size_t begin = at;
        if (depth == 0 || !passTo(">", 2)) return false;
        --depth;
        if (depth == 1 && isWanted) layout.elements.back().end = at;
        if (depth == 0) closeRoot(begin);
        return true;
    }

    void closeRoot(std::size_t begin)
    {
        rootIsClosed = true;
        layout.rootEnd = {begin, at};
    }

    std::string_view text;
    std::string_view tag;
    std::size_t at = 0;
    int depth = 0;
    bool isWanted = false;  // the present child of the root has the tag that is looked for
    bool rootIsClosed = false;
    ElementLayout layout;
};
}  // namespace

std::optional<ElementLayout> scanElements(std::string_view text, std::string_view tag)
{
    return Scanner(text, tag).scan();
}

TextSpan withItsLines(std::string_view text, TextSpan span)
{
    std::size_t begin = span.begin;
    while (begin > 0 && (text[begin - 1] == ' ' || text[begin - 1] == '\t')) --begin;
    if (begin == 0 || text[begin - 1] == '\n') span.begin = begin;
    const std::size_t end = text.find_first_not_of(" \t\r", span.end);
    if (end == NOWHERE) span.end = text.size();
    if (end != NOWHERE && text[end] == '\n') span.end = end + 1;
    return span;
}
}  // namespace Backend
