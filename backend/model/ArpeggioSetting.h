#pragma once

#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>

#include "platform/Export.h"

class XmlElement;

namespace Backend::ArpeggioManagement
{
/// How a layer plays the notes that are held on it, on the grid that all arpeggios share. Lengths are in pulses, 480 to
/// the quarter note.
struct ORV_API ArpeggioSetting {
    enum class Type { chord, up, down, upDown };

    Type type = Type::chord;
    std::int32_t beat = 480;    ///< from note to note; 0 is no beat: only the first note after silence sounds
    std::int32_t length = 480;  ///< of a note; one that is longer than the beat is cut by the next

    /// From one of the elements `ChordArpeggio`, `UpArpeggio`, `DownArpeggio` and `UpDownArpeggio`; none from another.
    static std::optional<ArpeggioSetting> fromXml(const XmlElement& element);
    /// The element, one line after `indent` TABs.
    void writeXml(std::ostream& out, int indent) const;

    /// As it is played: in the types that walk, a length of 0 or less is the beat.
    ArpeggioSetting normalized() const;

    /// The name of the element.
    std::string getTypeName() const;

    /// "Up + Down Arp 1/8 Len:1/16".
    std::string toString() const;

    bool operator==(const ArpeggioSetting&) const = default;
};
}  // namespace Backend::ArpeggioManagement
