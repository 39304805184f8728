#pragma once

#include <QString>
#include <map>

namespace Gui::ComputerInput
{
struct PlannedKey;

/// What is printed on the player's own keys: the signs of the layout of this moment, where the platform tells them.
class KeyLabels
{
public:
    /// Asks the platform; true if a label has changed.
    bool refresh();

    QString get(const PlannedKey& key) const;

private:
    std::map<int, QString> labels;  // by code; those that differ from the plan's
};
}  // namespace Gui::ComputerInput
