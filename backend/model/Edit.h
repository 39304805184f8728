#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace Backend
{
/// A record of a section: the index of a layer or oscillator, the number of a zone, the packed form of a control's
/// cell, of a key or of a MIDI event, or what `JoystickConfiguration::recordOf` gives. The program's own values are
/// record 0 of the section "Program".
using RecordId = std::int32_t;

/// What a section has besides its records: for keys, the attributes "useKeyUpMod" and "preset"; for joysticks,
/// "disabled", the numbers of those that are.
inline constexpr RecordId SECTION_RECORD = -1;

/// A field of a record as files have it: an attribute with its text; or, with the name in angle brackets
/// ("<Arpeggio>"), all child elements of that tag, as XML, empty for none.
struct Field {
    std::string name;
    std::string value;

    bool operator==(const Field&) const = default;
};
using Fields = std::vector<Field>;

/// What an edit does to a record.
struct RecordEdit {
    enum class Kind {
        change,  ///< sets the fields; the others stay. Without that record nothing changes.
        add,     ///< adds a record; of layers and oscillators before the one with that index. Fields not named have
                 ///< the values of `copyOf`, or defaults.
        remove
    };

    Kind kind = Kind::change;
    RecordId id = 0;
    Fields fields{};
    std::optional<RecordId> copyOf{};
};

/// An edit of the program in the window, one step of its history. Values are those of files: one that a file may not
/// have is treated as it would be in a file.
struct Edit {
    std::string section;        ///< its element in a program, "Layers", or "Program"
    std::string name;           ///< as the user reads it: "layer 2 transpose"
    std::uint32_t gesture = 0;  ///< successive edits with the same number, as of a drag, are one step
    int program = 0;            ///< the number of the program that the window shows; ignored if another one is current
    std::vector<RecordEdit> records{};
    std::string preset{};       ///< instead of `records`: the preset of the section that is loaded
    bool isPresetFile = false;  ///< `preset` is the path of a file in any folder
};

/// The acknowledgement of an edit, and of undo and redo.
struct EditDone {
    enum class Kind { edited, undone, redone };
    /// A record that was added or removed.
    struct Record {
        std::string section;
        RecordEdit::Kind kind = RecordEdit::Kind::add;
        RecordId id = 0;

        bool operator==(const Record&) const = default;
    };

    Kind kind = Kind::edited;
    std::uint32_t gesture = 0;
    std::string name{};             ///< of the edit; empty if nothing was changed
    std::vector<Record> records{};  ///< in the order of execution

    bool operator==(const EditDone&) const = default;
};

/// The setting "Ask before changes are lost".
enum class BeforeLoss {
    ask,   ///< whenever an edited program is left
    keep,  ///< before closing and loading; a program change keeps a draft
    never
};
}  // namespace Backend
