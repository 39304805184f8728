#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "api/OrvGuiIF.h"
#include "backend/model/ZoneMap.h"
#include "gui/forms/RecordEditor.h"
#include "gui/framework/EditPoster.h"
#include "gui/screens/computerinput/KeyRecords.h"

class QFormLayout;

namespace Gui::Output
{
class MusicKeyboardCtl;
}

/// The larger parts of the window: status line, presets, keyboards, a menu and a dialog, with what they show while one
/// plays.
class Parts final : public QWidget
{
public:
    explicit Parts(Gui::OrvGuiIF& owner);

    /// Lights what goes out by itself after a moment. To be called again and again.
    void light();
    /// Whether the keyboard shows its notes.
    bool isLit() const;
    /// Adds pictures of what has a window of its own. Once the window is skinned.
    void photographWindows();

private:
    void addStatus();
    void addPresets();
    void addKeyboards();

    Gui::OrvGuiIF& gui;
    QFormLayout* rows;
    std::vector<std::function<void()>> lights;
    Gui::Output::MusicKeyboardCtl* piano = nullptr;
    const Gui::Forms::FieldLists lists;
    Gui::ComputerInput::KeyRecords keys;
    Gui::EditPoster edits;
    Gui::Forms::RecordEditor keyEditor;
    Backend::Zones::ZoneMap zones;
};
