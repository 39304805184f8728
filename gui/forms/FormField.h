#pragma once

#include <QString>
#include <functional>
#include <vector>

namespace Gui::Forms
{
/// A setting of a record as a form shows it: its name, and its value as the text that a user reads and types. The
/// record outlives its fields. The GUI thread.
struct FormField {
    enum class Edit {
        list,     ///< one of `choices`
        text,     ///< any text, or one of `choices`
        number,   ///< from `lowest` to `highest`
        change,   ///< "60" replaces, "+5" and "-5" add, blank changes nothing
        note,     ///< "C4" or 60
        length,   ///< a note length, "1/8 Dotted", or pulses
        fraction  ///< "3/4"
    };
    struct Choice {
        QString text;
        int value = 0;
    };
    struct Range {
        int lowest = 0;
        int highest = 127;
    };

    QString name;
    Edit edit = Edit::list;
    std::vector<Choice> choices{};
    int lowest = 0;
    int highest = 127;
    std::function<Range()> limits{};  ///< in place of the two, where they follow other fields
    int wideStep = 10;                ///< of the wheel, a drag or an arrow key with Shift
    bool mayBeBlank = false;          ///< a number or note: none

    /// The value as text; of a list the text of the choice, or of a number that has none ("9 (missing)").
    std::function<QString()> get{};
    /// Stores a text that `taken` returned.
    std::function<void(const QString& text)> set{};
    /// Whether the value is used with the present values of the others; null for always.
    std::function<bool()> isUsed{};

    Range getRange() const { return limits ? limits() : Range{lowest, highest}; }
};

/// What is made of a text that was typed.
struct Taken {
    QString text;      ///< to be stored: the nearest one that the field allows, or the present one
    QString remark{};  ///< what was wrong with it, for the user; empty if nothing was
};

Taken taken(const FormField& field, const QString& typed);

/// What so many steps of the wheel, of a drag or of an arrow key make of a value; of a list, a text or a fraction the
/// same value.
Taken stepped(const FormField& field, const QString& value, int steps);
}  // namespace Gui::Forms
