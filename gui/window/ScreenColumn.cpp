#include "gui/window/ScreenColumn.h"

#include <algorithm>

#include "api/OrvGuiIF.h"
#include "api/OrvMessageManager.h"
#include "gui/framework/GuiMessageManagerMaster.h"
#include "gui/keyboard/WindowKeyboard.h"
#include "gui/screens/cc/CcPanel.h"
#include "gui/screens/computerinput/ComputerInputPanel.h"
#include "gui/screens/controls/ControlPanel.h"
#include "gui/screens/display/DisplayPanel.h"
#include "gui/screens/help/HelpPanel.h"
#include "gui/screens/joystick/JoystickPanel.h"
#include "gui/screens/layers/LayerPanel.h"
#include "gui/screens/layers/MainPanel.h"
#include "gui/screens/midiinput/MidiInputPanel.h"
#include "gui/screens/oscillators/OscPanel.h"
#include "gui/screens/output/OutputPanel.h"
#include "gui/screens/system/StagePanel.h"
#include "gui/screens/system/SystemPanel.h"
#include "gui/screens/zones/ZonePanel.h"

namespace Gui
{
using Backend::Screen;
using Backend::ScreenState;

namespace
{
/// As they are shown, one below the other.
constexpr Screen DOWNWARDS[] = {Screen::system,   Screen::help,      Screen::display,       Screen::oscillators,
                                Screen::joystick, Screen::midiInput, Screen::computerInput, Screen::controls,
                                Screen::output,   Screen::zones,     Screen::layers,        Screen::cc};

/// The screens below the music keyboard, inside the output screen.
constexpr bool isInOutput(Screen screen)
{
    return screen == Screen::zones || screen == Screen::layers || screen == Screen::cc;
}
}  // namespace

/// Makes the screens that the window needs also while they are hidden.
ScreenColumn::ScreenColumn(OrvGuiIF& owner, WindowKeyboard& windowKeyboard, QWidget& window)
    : Panel(owner.getGdiManager()),
      gui(owner),
      keyboard(windowKeyboard),
      noteLights(owner.getOrvIF(),
                 [this](const auto& activity) {
                     if (zonePanel != nullptr) zonePanel->showNotes(activity);
                     if (layerPanel != nullptr) layerPanel->getLayerPanel().showNotes(activity);
                 }),
      stagePanel(new System::StagePanel(gui, getGdi(), &window))
{
    ensureMade(Screen::system);
    for (const Screen screen : SCREENS)
        if (screen != Screen::system) systemPanel->offerScreen(screen);
    for (const Screen screen : {Screen::help, Screen::computerInput, Screen::output}) ensureMade(screen);
    gui.getGuiMessageManagerMaster().addMessageManager(&zoneMessages);
}

ScreenColumn::~ScreenColumn() = default;

Panel* ScreenColumn::makePanel(Screen screen)
{
    switch (screen) {
        case Screen::system:
            return systemPanel = new System::SystemPanel(gui, *stagePanel, this);
        case Screen::help:
            return helpPanel = new Help::HelpPanel(gui, this);
        case Screen::display:
            return displayPanel = new Display::DisplayPanel(gui, this);
        case Screen::oscillators:
            return new Oscillators::OscPanel(gui, this);
        case Screen::joystick:
            return joystickPanel = new Joystick::JoystickPanel(gui, this);
        case Screen::midiInput:
            return new MidiInput::MidiInputPanel(gui, this);
        case Screen::computerInput:
            return computerInputPanel = new ComputerInput::ComputerInputPanel(gui, this);
        case Screen::controls:
            return new Controls::ControlPanel(gui, this);
        case Screen::output:
            return outputPanel = new Output::OutputPanel(gui, this);
        case Screen::zones:
            return zonePanel = new Zones::ZonePanel(gui, outputPanel);
        case Screen::layers:
            return layerPanel = new Layers::MainPanel(gui, outputPanel);
        case Screen::cc:
            return ccPanel = new Cc::CcPanel(gui, sent, outputPanel);
    }
    return nullptr;
}

void ScreenColumn::ensureMade(Screen screen)
{
    if (panelOf(screen) != nullptr) return;
    Panel* const made = makePanel(screen);
    panels[static_cast<std::size_t>(screen)] = made;
    const auto isBelow = [&](Screen other) {
        const Panel* const panel = panelOf(other);
        return panel != nullptr && panel->parentWidget() == made->parentWidget();
    };
    const auto* const below = std::find_if(std::ranges::find(DOWNWARDS, screen) + 1, std::end(DOWNWARDS), isBelow);
    if (below != std::end(DOWNWARDS)) made->moveAbove(*panelOf(*below));
}

// --- showing and hiding

void ScreenColumn::showScreen(Screen screen, bool on)
{
    const bool isNew = on && panelOf(screen) == nullptr;
    setShown(screen, on);
    if (isNew) gui.getOrvMessageManager().postRefreshGui();
    if (on && isInOutput(screen)) setShown(Screen::output, true);
    screensChanged();
}

bool ScreenColumn::isShowing(Screen screen) const
{
    const Panel* const panel = panelOf(screen);
    return panel != nullptr && panel->isShown() && (!isInOutput(screen) || outputPanel->isShown());
}

void ScreenColumn::hideAll()
{
    hidden = getState();
    for (const Screen screen : SCREENS)
        if (!isInOutput(screen)) gui.showScreen(screen, false);
}

void ScreenColumn::showHidden()
{
    const auto bits = hidden.value_or(ScreenState{}).toBits();
    for (const Screen screen : SCREENS)
        if (bits[static_cast<std::size_t>(screen)] && !isInOutput(screen)) gui.showScreen(screen, true);
    if (!hasShownChild()) gui.showScreen(Screen::system, true);
}

ScreenState ScreenColumn::getState() const
{
    auto bits = ScreenState{}.toBits();
    for (const Screen screen : SCREENS) {
        const Panel* const panel = panelOf(screen);
        bits[static_cast<std::size_t>(screen)] = panel != nullptr && panel->isShown();
    }
    return ScreenState::fromBits(bits);
}

void ScreenColumn::setState(const ScreenState& state)
{
    const auto bits = state.toBits();
    for (const Screen screen : SCREENS) setShown(screen, bits[static_cast<std::size_t>(screen)]);
    screensChanged();
}

void ScreenColumn::setShown(Screen screen, bool on)
{
    if (on) ensureMade(screen);
    Panel* const panel = panelOf(screen);
    if (panel == nullptr) return;
    if (!on) keyboard.takeFocusFrom(*panel);
    if (!on && screen == Screen::system) keyboard.takeFocusFrom(*stagePanel);
    panel->show(on);
    if (screen == Screen::system) stagePanel->show(on);
}

void ScreenColumn::screensChanged()
{
    if (onChange) onChange();  // a hidden column gets no resize event
    for (const Screen screen : SCREENS) systemPanel->screenShown(screen, isShowing(screen));
    lightNotes();
}

/// While a screen that shows them is seen.
void ScreenColumn::lightNotes()
{
    noteLights.setOn(isVisible() && (isShowing(Screen::zones) || isShowing(Screen::layers)));
}

void ScreenColumn::showEvent(QShowEvent* event)
{
    Panel::showEvent(event);
    lightNotes();
}

void ScreenColumn::hideEvent(QHideEvent* event)
{
    Panel::hideEvent(event);
    lightNotes();
}

void ScreenColumn::resizeEvent(QResizeEvent*)
{
    if (onChange) onChange();
}
}  // namespace Gui
