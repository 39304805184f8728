#include "backend/model/ArpeggioSetting.h"

#include <algorithm>
#include <array>
#include <ostream>
#include <string_view>

#include "backend/values/NoteIntervals.h"
#include "backend/xml/XmlElement.h"
#include "backend/xml/XmlWriter.h"

namespace Backend::ArpeggioManagement
{
namespace
{
using Type = ArpeggioSetting::Type;

struct TypeRow {
    Type type;
    std::string_view element;
    std::string_view name;
};

constexpr auto TYPES = std::to_array<TypeRow>({{Type::chord, "ChordArpeggio", "Chord"},
                                               {Type::up, "UpArpeggio", "Up"},
                                               {Type::down, "DownArpeggio", "Down"},
                                               {Type::upDown, "UpDownArpeggio", "Up + Down"}});

const TypeRow& rowOf(const ArpeggioSetting& setting) { return TYPES[static_cast<std::size_t>(setting.type)]; }
}  // namespace

std::optional<ArpeggioSetting> ArpeggioSetting::fromXml(const XmlElement& element)
{
    const auto row = std::ranges::find(TYPES, element.getTagName(), &TypeRow::element);
    if (row == TYPES.end()) return std::nullopt;
    ArpeggioSetting setting{.type = row->type};
    setting.beat = element.getIntAttribute("beat", setting.beat);
    setting.length = element.getIntAttribute("length", setting.length);
    return setting.normalized();
}

ArpeggioSetting ArpeggioSetting::normalized() const
{
    ArpeggioSetting setting = *this;
    if (type != Type::chord && length <= 0) setting.length = beat;
    return setting;
}

void ArpeggioSetting::writeXml(std::ostream& out, int indent) const
{
    out << std::string(static_cast<std::size_t>(indent), '\t') << xmlOpenTag(getTypeName())
        << xmlIntAttribute("beat", beat) << xmlIntAttribute("length", length) << xmlCloseEmpty() << '\n';
}

std::string ArpeggioSetting::getTypeName() const { return std::string(rowOf(*this).element); }

std::string ArpeggioSetting::toString() const
{
    return std::string(rowOf(*this).name) + " Arp " + noteIntervalName(beat) + " Len:" + noteIntervalName(length);
}
}  // namespace Backend::ArpeggioManagement
