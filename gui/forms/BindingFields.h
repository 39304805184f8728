#pragma once

#include <QStringList>
#include <functional>
#include <vector>

#include "gui/forms/FormField.h"

namespace Backend::FunctionManagement
{
class Function;
}
namespace Backend::MidiInput::TranslationManagement
{
class Translation;
}

namespace Gui
{
class OrvGuiIF;
}

namespace Gui::Forms
{
/// The names that fields offer.
struct FieldLists {
    QStringList outputs{};                                     ///< by number; empty for one that is missing
    std::function<QStringList(const char* folder)> presets{};  ///< of a section, see `PresetSections`
    QStringList sequences{};                                   ///< the presets of arpeggios' sequences
};
/// Those that the window offers now. It must outlive them.
FieldLists takeLists(OrvGuiIF& gui);

/// The settings of a function, or of a translation, in the order in which a form shows them; none for one without
/// parameters. Zones, items and cells are counted from 1, as on the screens.
std::vector<FormField> fieldsOf(Backend::FunctionManagement::Function& function, const FieldLists& lists);
std::vector<FormField> fieldsOf(Backend::MidiInput::TranslationManagement::Translation& translation,
                                const FieldLists& lists);
}  // namespace Gui::Forms
