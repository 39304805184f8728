#include "gui/window/WindowKeys.h"

#include <QApplication>
#include <QKeyEvent>

#include "api/OrvGuiIF.h"
#include "api/OrvMessageManager.h"
#include "gui/forms/EditableSections.h"
#include "gui/forms/RecordEditor.h"
#include "gui/framework/EditPoster.h"
#include "gui/keyboard/KeyReading.h"
#include "gui/screens/computerinput/ComputerInputPanel.h"
#include "gui/screens/computerinput/ComputerKeyboardCtl.h"
#include "gui/screens/system/StagePanel.h"
#include "gui/window/MainWindow.h"
#include "gui/window/ScreenColumn.h"

namespace Gui
{
WindowKeys::WindowKeys(OrvGuiIF& owner, MainWindow& mainWindow)
    : gui(owner), commands(owner.getOrvMessageManager()), window(mainWindow), keyboard(mainWindow, *this)
{
    keyboard.onWindowKey = [this](const QKeyEvent& event) { return useEditKey(event); };
    keyboard.onTarget = [this](KeyTarget target) { showTarget(target); };
}

// --- playing: the backend plays the keys, and the picture of the keyboard shows them

void WindowKeys::keyDown(const Key& key, bool isRepeat) { commands.postKeyDown(key, isRepeat); }

void WindowKeys::keyUp(const Key& key) { commands.postKeyUp(key); }

void WindowKeys::showKey(int code, bool down)
{
    auto& picture = window.getScreens().getComputerInputPanel().getKeyboard();
    down ? picture.showKeyDown(code) : picture.showKeyUp(code);
}

void WindowKeys::showTarget() { showTarget(keyboard.findTarget(QApplication::focusWidget())); }

void WindowKeys::showTarget(KeyTarget target)
{
    window.getScreens().getStagePanel().showKeyTarget(target);
    gui.handleKeyTarget(target);
}

// --- editing

/// Control and Z undoes, with Shift it does again; the keys of the section that is edited act on what is selected
/// there. All unless the program binds them.
bool WindowKeys::useEditKey(const QKeyEvent& event)
{
    if (window.getScreens().getComputerInputPanel().isBound(readKey(event))) return false;
    const bool again = event.modifiers() == (Qt::ControlModifier | Qt::ShiftModifier);
    if (event.key() == Qt::Key_Z && (again || event.modifiers() == Qt::ControlModifier)) {
        again ? gui.getEdits().redo() : gui.getEdits().undo();
        return true;
    }
    Forms::RecordEditor* const section = gui.getEditableSections().getActive();
    const auto command = Forms::RecordEditor::commandOf(event);
    if (section == nullptr || !command || !section->canExecute(*command)) return false;
    section->execute(*command);
    return true;
}

bool WindowKeys::useSectionKey(const QKeyEvent& event)
{
    using Direction = Forms::EditableSections::Direction;
    const bool isBack = event.key() == Qt::Key_Backtab || event.modifiers().testFlag(Qt::ShiftModifier);
    if ((event.key() != Qt::Key_Tab && event.key() != Qt::Key_Backtab) ||
        (event.modifiers() & ~Qt::ShiftModifier) != Qt::ControlModifier)
        return false;
    return gui.getEditableSections().moveFocus(isBack ? Direction::previous : Direction::next);
}
}  // namespace Gui
