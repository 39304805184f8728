#include "gui/screens/display/DisplayPanel.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPushButton>
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "api/OrvGuiIF.h"
#include "api/OrvIF.h"
#include "api/OrvMessageManager.h"
#include "backend/display/DisplayMessageManager.h"
#include "backend/files/RegistrySettings.h"
#include "backend/values/MidiMessage.h"
#include "gui/framework/ComboBox.h"
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
using Backend::MidiEngine::MessageType;
using Backend::MidiEngine::MidiMessage;

namespace
{
constexpr auto PULL = std::chrono::milliseconds(100);
constexpr int BUTTON_HEIGHT = 20;
constexpr int BUTTON_WIDTH = 74;
constexpr int TEXT_TOP = BUTTON_HEIGHT + 4;

/// The buttons of the settings in `Switches::DISPLAY`.
constexpr const char* LABELS[] = {"Input", "Output", "Numbers", "Times", "Large"};
constexpr std::size_t LARGE = 4;

constexpr int CHANNELS = 16;
constexpr int PORT_WIDTH = 118;
constexpr int CHANNEL_WIDTH = 92;
constexpr int KIND_WIDTH = 106;

/// What the list of events offers: a name and the events, from the first to the last.
struct Kind {
    const char* name;
    MessageType first;
    MessageType last;
};
constexpr Kind KINDS[] = {{"Notes", MessageType::noteOff, MessageType::noteOn},
                          {"Key pressure", MessageType::keyPressure, MessageType::keyPressure},
                          {"Controllers", MessageType::controllerChange, MessageType::controllerChange},
                          {"Programs", MessageType::programChange, MessageType::programChange},
                          {"Pressure", MessageType::channelPressure, MessageType::channelPressure},
                          {"Pitch bend", MessageType::pitchBend, MessageType::pitchBend},
                          {"System", MessageType::systemExclusive, MessageType::systemReset}};

QStringList eventsOf(const Kind& kind)
{
    QStringList names;
    for (auto status = static_cast<std::uint32_t>(kind.first); status <= static_cast<std::uint32_t>(kind.last);
         ++status)
        names << QString::fromStdString(MidiMessage::getEventNameStatic(static_cast<MessageType>(status)));
    return names;
}

template <class Ports>
QStringList namesOf(const Ports& ports, const QString& prefix)
{
    QStringList names;
    for (const auto& each : ports) names << prefix + QString::fromStdString(each.getName());
    return names;
}
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
    makeFilter();
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
    for (std::size_t i = 0; i < SWITCHES; ++i) {
        switches[i] = makeButton(tr(LABELS[i]), {});
        makeSwitch(*switches[i], Switches::DISPLAY[i], gui.getOrvMessageManager());
    }
    auto* const pause = makeButton(
        tr("Pause"), tr("Pause: the view stays as it is. What comes meanwhile is shown when the pause ends."));
    pause->setCheckable(true);
    connect(pause, &QPushButton::clicked, log, &LogView::setPaused);
    auto* const copy =
        makeButton(tr("Copy"), tr("Copy: the selected text, or else all that is shown, goes to the clipboard."));
    connect(copy, &QPushButton::clicked, log, &LogView::copyText);
    auto* const clear = makeButton(
        tr("Clear"), tr("Clear: empties the view. The events come back when the display is hidden and shown again."));
    connect(clear, &QPushButton::clicked, log, &LogView::empty);
}

QPushButton* DisplayPanel::makeButton(const QString& label, const QString& help)
{
    auto* const button = new QPushButton(label, this);
    place(*button, {nextLeft, 0, BUTTON_WIDTH, BUTTON_HEIGHT});
    nextLeft += BUTTON_WIDTH + GAP;
    button->setFocusPolicy(Qt::TabFocus);
    button->setAccessibleName(label);
    Property::setHelp(*button, help);
    return button;
}

// --- the filter

void DisplayPanel::makeFilter()
{
    port = makeChoices(PORT_WIDTH, tr("Shown port"), tr("Shows the events of one input or output only."));
    channel = makeChoices(CHANNEL_WIDTH, tr("Shown channel"), tr("Shows the events of one channel only."));
    kind = makeChoices(KIND_WIDTH, tr("Shown events"), tr("Shows the events of one kind only."));
    channel->addEntry({.text = tr("All channels")});
    for (int number = 1; number <= CHANNELS; ++number) channel->addEntry({.text = tr("Channel %1").arg(number)});
    channel->setSelectedIndex(0);
    kind->addEntry({.text = tr("All events")});
    for (const Kind& each : KINDS) kind->addEntry({.text = tr(each.name)});
    kind->setSelectedIndex(0);
    handleMidiInputPortsChanged(gui.getMidiInputPorts());
    handleMidiOutputPortsChanged(gui.getMidiOutputPorts());
}

ComboBox* DisplayPanel::makeChoices(int width, const QString& name, const QString& help)
{
    auto* const choices = new ComboBox(gui, ComboBox::Typing::readOnly, this);
    place(*choices, {nextLeft, 0, width, BUTTON_HEIGHT});
    nextLeft += width + GAP;
    choices->setAccessibleName(name);
    Property::setHelp(*choices, help);
    Property::set(*choices, Property::TEXT, true);
    choices->onChange = [this](int) { useFilter(); };
    return choices;
}

void DisplayPanel::handleMidiInputPortsChanged(const Backend::MidiEngine::MidiInputPorts& ports)
{
    inputs = namesOf(ports, QStringLiteral("> "));
    showPorts();
}

void DisplayPanel::handleMidiOutputPortsChanged(const Backend::MidiEngine::MidiOutputPorts& ports)
{
    outputs = namesOf(ports, {});
    showPorts();
}

/// A port that is gone is shown no longer.
void DisplayPanel::showPorts()
{
    const QString chosen = port->text();
    const QStringList all = QStringList(tr("All ports")) + inputs + outputs;
    std::vector<ComboBox::Entry> entries;
    for (const QString& name : all) entries.push_back({.text = name});
    port->setEntries(std::move(entries));
    port->setSelectedIndex(std::max(0, static_cast<int>(all.indexOf(chosen))));
    if (port->text() != chosen) useFilter();
}

void DisplayPanel::useFilter()
{
    const int row = kind->getSelectedIndex();
    log->setFilter({.port = port->getSelectedIndex() > 0 ? port->text() : QString(),
                    .channel = channel->getSelectedIndex(),
                    .events = row > 0 ? eventsOf(KINDS[row - 1]) : QStringList()});
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
