#pragma once

#include <QPointer>
#include <memory>

#include "backend/model/Recovery.h"
#include "gui/forms/EditableSections.h"
#include "gui/framework/EditPoster.h"
#include "gui/framework/GdiManager.h"
#include "gui/framework/GuiWindow.h"
#include "gui/framework/InputWatch.h"
#include "gui/framework/Learner.h"
#include "gui/framework/Skinner.h"
#include "gui/keyboard/GlobalKeyMessageManager.h"
#include "gui/window/MainWindow.h"
#include "gui/window/OrvGuiMessageManager.h"
#include "platform/Rect.h"

namespace Backend
{
struct WindowMove;
}

namespace Gui
{
class OrvGuiIF;
class ParentWindow;

namespace Files
{
class ProgramsDialog;
}

namespace Setup
{
class SetupDialog;
}

/// Everything that exists only while the window is open. Members are destroyed in reverse order. The GUI thread.
struct OpenWindow {
    /// Both must outlive it.
    OpenWindow(OrvGuiIF& owner, ParentWindow& parentWindow);
    ~OpenWindow();

    /// Makes the main window. Its screens use the other members through `OrvGuiIF`, so this follows the constructor.
    void makeMainWindow();
    /// Applies the skin and the scale of the settings; the scale only as far as the host has room for it.
    void applyLook();
    /// Shows the window in its parent, at the position where it was last closed, if that is on a screen of the desktop.
    void show();

    void move(const Backend::WindowMove& move) const;
    /// The position of the window on the desktop, with its frame, in pixels.
    WindowsLib::Rect getPosition() const;

    /// Opens the dialog, or brings the open one to the front; false for that.
    bool showSetupDialog();
    /// Updates the setup dialog, if it is open.
    void refreshSetup() const;

    ScreenColumn& getScreens() const { return main->getScreens(); }
    /// The dialog on top, or the window.
    QWidget& getDialogParent() const;

    OrvGuiIF& gui;
    ParentWindow& parent;
    GdiManager gdi;
    Skinner skinner;
    OrvGuiMessageManager messages;
    GlobalKeyMessageManager globalKeys;
    GuiWindow window;
    EditPoster edits;
    Learner learner;
    InputWatch inputWatch;
    Forms::EditableSections sections;
    std::unique_ptr<MainWindow> main;
    Backend::RecoveryResult recovery = Backend::RecoveryResult::nothing;  // as it was reported last
    QPointer<Files::ProgramsDialog> programs;  // while it is open; a child of the main window

private:
    void sizeChanged(QSize before, QSize now);
    void restorePosition() const;

    int shownSkin = 0;
    bool placed = false;                 // the bottom edge has a position to be kept
    QPointer<Setup::SetupDialog> setup;  // while it is open; a child of the main window
};
}  // namespace Gui
