#pragma once

#include <QString>
#include <bitset>
#include <optional>

namespace Gui
{
/// What the X server knows of the keyboard and Qt does not tell. On other platforms it is empty. The GUI thread.
namespace XKeyboard
{
using Keys = std::bitset<256>;  ///< by scan code

/// A key that is held then repeats as presses, and is released once.
void makeRepeatsDetectable();

/// The keys that are physically down; none where that cannot be known.
std::optional<Keys> getKeysDown();

/// What the layout of this moment has on its keys; made anew when the layout may have changed.
class Layout
{
public:
    Layout();
    ~Layout();
    Layout(const Layout&) = delete;
    Layout& operator=(const Layout&) = delete;

    /// What the key at that place types by itself, as it is printed on a key; empty for one that types nothing.
    QString getLabel(int scanCode) const;

private:
    void* map = nullptr;
    int group = 0;
};
}  // namespace XKeyboard
}  // namespace Gui
