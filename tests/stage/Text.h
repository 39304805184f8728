#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <sstream>
#include <string>

#include "backend/xml/XmlDocument.h"

// Texts as tests compare them.

inline const std::string XML_HEAD = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n\n";

inline XmlElement rootOf(std::string_view text) { return XmlDocument(text, XmlDocument::Source::text).getRoot(); }

/// What `write` writes to the stream that it gets.
template <class Write>
std::string writtenBy(Write&& write)
{
    std::ostringstream out;
    write(out);
    return out.str();
}

/// XML without its tabs and line ends, and with ' for ".
inline std::string flat(std::string xml)
{
    std::erase_if(xml, [](char letter) { return letter == '\t' || letter == '\n' || letter == '\r'; });
    std::ranges::replace(xml, '"', '\'');
    return xml;
}

/// A file's text, "" if there is none.
inline std::string fileText(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// What `describe` makes of each element, without the empty ones, with `separator` between them.
template <class Elements, class Describe = std::identity>
std::string joined(const Elements& elements, Describe&& describe = {}, const std::string& separator = " ")
{
    std::string all;
    for (const auto& element : elements) {
        const std::string text(describe(element));
        if (!text.empty()) all += (all.empty() ? "" : separator) + text;
    }
    return all;
}
