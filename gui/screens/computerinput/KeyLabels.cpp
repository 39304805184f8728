#include "gui/screens/computerinput/KeyLabels.h"

#include <cstring>

#include "backend/values/Key.h"
#include "gui/keyboard/SystemKeyboard.h"
#include "gui/screens/computerinput/KeyboardPlan.h"
#include "keyboardhook/KeyTable.h"

namespace Gui::ComputerInput
{
namespace
{
/// The keypad types other characters with Num Lock; its labels are the same on every layout.
bool followsLayout(const PlannedKey& key)
{
    return std::strlen(key.label) == 1 && (key.code < Key::NUMPAD_0 || key.code > Key::NUMPAD_DIVIDE);
}
}  // namespace

bool KeyLabels::refresh()
{
    const SystemKeyboard::Layout layout;
    std::map<int, QString> now;
    for (const PlannedKey& key : KeyboardPlan::getKeys()) {
        if (!followsLayout(key)) continue;
        const QString label = layout.getLabel(KeyTable::scanCodeOf(key.code));
        if (!label.isEmpty() && label != QLatin1String(key.label)) now[key.code] = label;
    }
    const bool changed = now != labels;
    labels = std::move(now);
    return changed;
}

QString KeyLabels::get(const PlannedKey& key) const
{
    const auto found = labels.find(key.code);
    return found == labels.end() ? QString::fromLatin1(key.label) : found->second;
}
}  // namespace Gui::ComputerInput
