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
        list,    ///< one of `choices`
        text,    ///< any text, or one of `choices`
        number,  ///< from `lowest` to `highest`
        change,  ///< "60" replaces, "+5" and "-5" add, blank changes nothing
        note     ///< "C4" or 60
    };
    struct Choice {
        QString text;
        int value = 0;
    };

    QString name;
    Edit edit = Edit::list;
    std::vector<Choice> choices{};
    int lowest = 0;
    int highest = 127;
    bool mayBeBlank = false;  ///< a number or note: none

    /// The value as text; of a list the text of the choice, or of a number that has none ("9 (missing)").
    std::function<QString()> get{};
    /// Stores a text that `taken` returned.
    std::function<void(const QString& text)> set{};
    /// Whether the value is used with the present values of the others; null for always.
    std::function<bool()> isUsed{};
};

/// What is made of a text that was typed.
struct Taken {
    QString text;      ///< to be stored: the nearest one that the field allows, or the present one
    QString remark{};  ///< what was wrong with it, for the user; empty if nothing was
};

Taken taken(const FormField& field, const QString& typed);
}  // namespace Gui::Forms
