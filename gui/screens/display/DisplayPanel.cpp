#include "gui/screens/display/DisplayPanel.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPushButton>
#include <chrono>
#include <memory>

#include "api/OrvGuiIF.h"
#include "api/OrvIF.h"
#include "api/OrvMessageManager.h"
#include "backend/display/DisplayMessageManager.h"
#include "backend/files/RegistrySettings.h"
#include "gui/framework/DisplayHeight.h"
#include "gui/framework/GuiMessageManagerMaster.h"
#include "gui/framework/Properties.h"
#include "gui/framework/Switches.h"
#include "gui/screens/display/DisplayFeed.h"
#include "gui/screens/display/HeightEdge.h"
#include "gui/screens/display/LogView.h"

namespace Gui::Display
{
using Backend::RegistrySettings;

namespace
{
constexpr auto PULL = std::chrono::milliseconds(100);
constexpr int BUTTON_HEIGHT = 20;
constexpr int BUTTON_WIDTH = 74;
constexpr int GAP = 4;
constexpr int TEXT_TOP = BUTTON_HEIGHT + GAP;

/// The buttons of the settings in `Switches::DISPLAY`.
constexpr const char* LABELS[] = {"Input", "Output", "Numbers", "Large"};
constexpr std::size_t LARGE = 3;
}  // namespace

DisplayPanel::DisplayPanel(OrvGuiIF& owner, Panel* around)
    : Panel(around),
      gui(owner),
      messages(*this),
      feed(new DisplayFeed(owner.getWindowHandle())),
      log(new LogView(owner.getGdiManager(), this)),
      edge(new HeightEdge(owner.getGdiManager(), DisplayHeight::LOWEST, DisplayHeight::HIGHEST, this))
{
    log->setAccessibleName(tr("Events"));
    Property::setHelp(*log, tr("The MIDI events that are received and sent, one per line. Select lines to copy them."));
    log->onOtherKey = [this](const QKeyEvent& event) { playKey(event); };
    makeButtons();
    makeEdge();
    handleSettingsChanged(gui.getRegistrySettings());

    gui.getGuiMessageManagerMaster().addMessageManager(&messages);
    getDisplay().setListener(feed);
    connect(&pull, &QTimer::timeout, this, [this] { getDisplay().postUpdateListener(); });
}

/// The display deletes the feed, because it may be calling it now.
DisplayPanel::~DisplayPanel() { getDisplay().dropListener(std::unique_ptr<Backend::Display::DisplayListener>(feed)); }

Backend::Display::DisplayMessageManager& DisplayPanel::getDisplay() const
{
    return gui.getOrvIF().getDisplayMessageManager();
}

void DisplayPanel::makeButtons()
{
    int left = 0;
    const auto make = [&](const QString& label) {
        auto* button = new QPushButton(label, this);
        place(*button, {left, 0, BUTTON_WIDTH, BUTTON_HEIGHT});
        button->setFocusPolicy(Qt::TabFocus);
        left += BUTTON_WIDTH + GAP;
        return button;
    };
    for (std::size_t i = 0; i < SWITCHES; ++i) {
        switches[i] = make(tr(LABELS[i]));
        makeSwitch(*switches[i], Switches::DISPLAY[i], gui.getOrvMessageManager());
    }
    auto* clear = make(tr("Clear"));
    clear->setAccessibleName(tr("Clear"));
    Property::setHelp(*clear,
                      tr("Clear: empties the view. The events come back when the display is hidden and shown again."));
    connect(clear, &QPushButton::clicked, log, &LogView::clear);
}

void DisplayPanel::makeEdge()
{
    edge->setAccessibleName(tr("Height of the display"));
    Property::setHelp(*edge, tr("Height of the display, 60 to 600 pixels: drag the edge, or use the arrow keys."));
    const auto keep = [this] { gui.getOrvMessageManager().postSetDisplayHeight(edge->value()); };
    connect(edge, &HeightEdge::valueChanged, this, [this, keep](int height) {
        setPanelSize({WIDTH, height});
        if (!edge->isSliderDown()) keep();
    });
    connect(edge, &HeightEdge::sliderReleased, this, keep);
}

void DisplayPanel::addText(const std::string& text) { log->addText(text); }

void DisplayPanel::setText(const std::string& text) { log->setText(text); }

void DisplayPanel::handleSettingsChanged(const RegistrySettings& settings)
{
    for (std::size_t i = 0; i < SWITCHES; ++i) switches[i]->setChecked((settings.*Switches::DISPLAY[i].get)());
    log->setLarge(settings.getLargeDisplayFont());
    if (edge->isSliderDown()) return;
    const QSignalBlocker quiet(edge);
    edge->setValue(settings.getDisplayHeight());
    setPanelSize({WIDTH, edge->value()});
}

void DisplayPanel::handleLargeDisplayFontChanged(bool on)
{
    switches[LARGE]->setChecked(on);
    log->setLarge(on);
}

/// Keys typed into the log are played.
void DisplayPanel::playKey(const QKeyEvent& event)
{
    gui.setFocus();
    QWidget* player = window()->focusWidget();
    if (player == nullptr || player == log) return;
    const std::unique_ptr<QEvent> copy(event.clone());
    QCoreApplication::sendEvent(player, copy.get());
}

/// Shows at once what was logged while it was hidden.
void DisplayPanel::showEvent(QShowEvent* event)
{
    Panel::showEvent(event);
    getDisplay().postResendText();
    pull.start(PULL);
}

void DisplayPanel::hideEvent(QHideEvent* event)
{
    pull.stop();
    Panel::hideEvent(event);
}

void DisplayPanel::resizeEvent(QResizeEvent* event)
{
    Panel::resizeEvent(event);
    const int top = getGdi().px(TEXT_TOP);
    const int thickness = getGdi().px(HeightEdge::THICKNESS);
    const int bottom = height() - thickness;
    log->setGeometry(0, top, width(), bottom - top);
    edge->setGeometry(0, bottom, width(), thickness);
}

void DisplayPanel::scaleChanged() { log->rescale(); }
}  // namespace Gui::Display
