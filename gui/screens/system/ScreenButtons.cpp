#include "gui/screens/system/ScreenButtons.h"

#include <QPushButton>
#include <algorithm>
#include <array>

#include "api/OrvGuiIF.h"
#include "gui/framework/GdiManager.h"
#include "gui/framework/Properties.h"

namespace Gui::System
{
using Backend::Screen;

namespace
{
constexpr int WIDEST = 88;
constexpr int GAP = 4;

struct ScreenRow {
    const char* label;
    const char* name;
    const char* help;
};

/// By the number of the screen.
constexpr std::array<ScreenRow, 12> SCREEN_TABLE{{
    {"System", "System screen", "System: the program, the tempo, the output and the other screens."},
    {"Help", "Help screen", "Help: explains the control under the mouse pointer."},
    {"Display", "Display screen", "Display: lists the MIDI events that are received and sent."},
    {"Oscillators", "Oscillator screen",
     "Oscillators: change controllers, pitch bend or pressure automatically, in time with the tempo."},
    {"Joystick", "Joystick screen", "Joystick: what the axes and buttons of the joysticks do."},
    {"MIDI input", "MIDI input screen", "MIDI input: what received MIDI events are translated to."},
    {"Keys", "Computer keyboard screen", "Keys: the computer's keyboard and what its keys do."},
    {"Controls", "Control screen", "Controls: faders and switches that send MIDI."},
    {"Output", "Output screen", "Output: a piano keyboard that shows the notes that sound and can be played."},
    {"Layers", "Layer screen", "Layers: which notes go to which outputs and channels."},
    {"CC", "Controller screen", "CC: the values of the controllers of a channel."},
    {"Zones", "Zone screen", "Zones: where on the piano keyboard each input plays."},
}};
}  // namespace

QString nameOf(Screen screen) { return ScreenButtons::tr(SCREEN_TABLE[static_cast<std::size_t>(screen)].label); }

ScreenButtons::ScreenButtons(OrvGuiIF& owner, QWidget* parent) : QWidget(parent), gui(owner) {}

void ScreenButtons::resizeEvent(QResizeEvent*) { layOut(); }

void ScreenButtons::offerScreen(Screen screen)
{
    if (buttons.contains(screen)) return;
    const ScreenRow& row = SCREEN_TABLE[static_cast<std::size_t>(screen)];
    auto* button = new QPushButton(tr(row.label), this);
    button->setCheckable(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setAccessibleName(tr(row.name));
    Property::setHelp(*button, tr(row.help));
    connect(button, &QPushButton::clicked, this, [this, screen](bool on) { gui.showScreen(screen, on); });
    buttons.emplace(screen, button);
    layOut();
}

/// In the order of the screens, all of the same width, or with the same room around their words where there are many.
void ScreenButtons::layOut()
{
    if (buttons.empty()) return;
    const GdiManager& gdi = gui.getGdiManager();
    const int gap = gdi.px(GAP);
    const auto widthOfWords = [](const QPushButton& button) {
        return button.fontMetrics().horizontalAdvance(button.text());
    };
    int words = 0;
    for (const auto& [screen, button] : buttons) words += widthOfWords(*button);
    const int around = (width() + gap - words) / static_cast<int>(buttons.size()) - gap;
    int left = 0;
    QWidget* before = nullptr;
    for (const auto& [screen, button] : buttons) {
        const int wide = std::min(gdi.px(WIDEST), widthOfWords(*button) + around);
        button->setGeometry(left, 0, wide, height());
        if (before != nullptr) setTabOrder(before, button);
        before = button;
        left += wide + gap;
    }
}

void ScreenButtons::screenShown(Screen screen, bool on)
{
    const auto button = buttons.find(screen);
    if (button != buttons.end()) button->second->setChecked(on);
}
}  // namespace Gui::System
