#pragma once

#include <QString>
#include <bitset>
#include <optional>

namespace Gui
{
/// Keyboard state of the X server or of Windows that Qt does not provide. Empty on other platforms. The GUI thread.
namespace SystemKeyboard
{
using Keys = std::bitset<256>;  ///< by scan code

/// From then on a held key repeats as presses and is released once.
void makeRepeatsDetectable();

/// The keys that are physically down; no value where that is unknown.
std::optional<Keys> getKeysDown();

/// The labels of the current layout. Make a new one when the layout may have changed.
class Layout
{
public:
    Layout();
    ~Layout();
    Layout(const Layout&) = delete;
    Layout& operator=(const Layout&) = delete;

    /// What the key at that place types without modifiers, as it is printed on the key; empty if it types nothing.
    QString getLabel(int scanCode) const;

private:
    void* map = nullptr;
    [[maybe_unused]] int group = 0;
};
}  // namespace SystemKeyboard
}  // namespace Gui
