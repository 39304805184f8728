#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

#include "backend/xml/XmlElement.h"

/// An XML document in UTF-8, from a file or a text. One that cannot be read has no root, and the debug stream gets
/// file, place and reason: a missing file, wrong tags, anything but white space, comments and instructions beside the
/// one root element, bytes that are not UTF-8, and documents beyond the limits below.
///
/// The limits keep a hostile file to about 450 MB of memory while it is read, and to little stack: nothing recurses. A
/// document type is passed over: its entities are never expanded and no other file is ever fetched. A reference to an
/// entity that XML does not define stays the text that it is. Only running out of memory throws (`std::bad_alloc`).
class XmlDocument
{
public:
    static constexpr std::size_t MAX_SIZE = 16 * 1024 * 1024;  ///< bytes, far beyond what a whole setup takes
    static constexpr int MAX_NESTING = 100;                    ///< levels, the root being the first

    enum class Source { file, text };

    /// Reads the file of that path, or the text itself.
    XmlDocument(std::string_view textOrPath, Source source);

    /// The document's one element, or no element if it could not be read.
    XmlElement getRoot() const;

private:
    std::shared_ptr<const pugi::xml_document> document;  // null if it could not be read
};
