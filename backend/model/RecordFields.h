#pragma once

#include <string>
#include <string_view>

#include "backend/model/Edit.h"
#include "platform/Export.h"

class XmlElement;

namespace Backend::RecordFields
{
/// The fields of a record's element, of any tag; none without an element.
ORV_API Fields read(const XmlElement& element);
/// The same of its text. A text that is no XML has none.
ORV_API Fields read(std::string_view text);

/// The element with these fields, on one line.
ORV_API std::string write(std::string_view tag, const Fields& fields);

/// The value of a field, to be changed; appended if there is none.
ORV_API std::string& valueOf(Fields& fields, std::string_view name);

/// The fields that have another value in `after`; empty for one that is not there.
ORV_API Fields differing(const Fields& before, const Fields& after);
}  // namespace Backend::RecordFields
