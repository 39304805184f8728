#pragma once

#include <QVariant>
#include <QWidget>

#include "gui/framework/GdiManager.h"

// Named Qt properties that change how a control looks and behaves. A property that is not set has its default: false,
// no limit, the colour of the role.
namespace Gui::Property
{
inline constexpr const char* SELECTED = "SELECTED";  ///< button, menu item: drawn as selected
inline constexpr const char* COLOR =
    "COLOR";  ///< button: a QColor, or another role, in place of its role's; label: a role
inline constexpr const char* FONT = "FONT";          ///< any: a `GdiManager::FontRole` in place of the skin's
inline constexpr const char* BKCOLOR = "BKCOLOR";    ///< label, edit: a QColor in place of the background's
inline constexpr const char* TEXT = "TEXT";          ///< label, edit: in the colour of values
inline constexpr const char* GRAYTEXT = "GRAYTEXT";  ///< any: in the colour of disabled labels
inline constexpr const char* DISABLED = "DISABLED";  ///< any: drawn as disabled
inline constexpr const char* NOWHEEL = "NOWHEEL";    ///< edit: the wheel event is passed to the parent
inline constexpr const char* MIN = "MIN";            ///< edit: the lowest number, an int
inline constexpr const char* MAX = "MAX";            ///< edit: the highest
inline constexpr const char* SHOW_ZERO_AS_BLANK = "SHOW_ZERO_AS_BLANK";  ///< edit: 0 is shown as an empty text
inline constexpr const char* SHOW_NOTE_STRING = "SHOW_NOTE_STRING";      ///< edit: a note, shown by its name
inline constexpr const char* JUMP_BY_12 = "JUMP_BY_12";                  ///< edit: a step of the wheel is 12
inline constexpr const char* NUMBERS_ONLY = "NUMBERS_ONLY";              ///< edit: no sign, so 0 is the lowest
inline constexpr const char* TOGGLE = "TOGGLE";                          ///< slider: a switch of two positions
inline constexpr const char* COMBO_BOX = "ComboBox";                     ///< edit: it belongs to a ComboBox
inline constexpr const char* HELP = "HELP";                              ///< any: its text on the help screen

inline void setColour(QObject& control, GdiManager::Role role) { control.setProperty(COLOR, static_cast<int>(role)); }
inline void setFont(QObject& control, GdiManager::FontRole role) { control.setProperty(FONT, static_cast<int>(role)); }

inline bool isSet(const QObject& control, const char* property) { return control.property(property).toBool(); }
inline void set(QObject& control, const char* property, bool on)
{
    control.setProperty(property, on ? QVariant(true) : QVariant());
}

/// For the help screen, and for screen readers.
inline void setHelp(QWidget& control, const QString& text)
{
    control.setProperty(HELP, text);
    control.setAccessibleDescription(text);
}
}  // namespace Gui::Property
