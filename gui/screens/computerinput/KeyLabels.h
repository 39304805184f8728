#pragma once

#include <QString>
#include <map>

namespace Gui::ComputerInput
{
struct PlannedKey;

/// The labels of the keys in the current keyboard layout, where the platform provides them.
class KeyLabels
{
public:
    /// Reads the current layout; true if a label has changed.
    bool refresh();

    QString get(const PlannedKey& key) const;

private:
    std::map<int, QString> labels;  // by code; those that differ from the plan
};
}  // namespace Gui::ComputerInput
