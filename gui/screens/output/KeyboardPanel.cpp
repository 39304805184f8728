#include "gui/screens/output/KeyboardPanel.h"

#include <QLabel>

#include "api/OrvGuiIF.h"
#include "gui/framework/GdiManager.h"
#include "gui/framework/Properties.h"
#include "gui/screens/output/ChannelLights.h"

namespace Gui::Output
{
namespace
{
constexpr int ROW = 20;
constexpr int LABEL_WIDTH = 60;
constexpr int NAME_WIDTH = 400;
constexpr int MARGIN = 5;
constexpr QSize SIZE(960, 106);
}  // namespace

KeyboardPanel::KeyboardPanel(OrvGuiIF& owner, Panel* around)
    : Panel(around),
      gui(owner),
      player(owner.getOrvMessageManager()),
      keyboard(new MusicKeyboardCtl(owner, this)),
      lights(new ChannelLights(owner.getGdiManager(), this)),
      outputName(new QLabel(this))
{
    makeTopRow();
    keyboard->setListener(&player);
    setPanelSize(SIZE);
    scaleChanged();
}

/// Releases a held key; the player is destroyed before the keyboard.
KeyboardPanel::~KeyboardPanel() { keyboard->setListener(nullptr); }

void KeyboardPanel::makeTopRow()
{
    auto* label = new QLabel(tr("Output"), this);
    place(*label, {MARGIN, 0, LABEL_WIDTH, ROW});
    place(*outputName, {MARGIN + LABEL_WIDTH, 0, NAME_WIDTH, ROW});
    outputName->setTextFormat(Qt::PlainText);
    Property::set(*outputName, Property::TEXT, true);
    Property::setHelp(*outputName, tr("Default output: MIDI events without an output of their own are sent there. It "
                                      "is chosen on the system screen."));
}

void KeyboardPanel::scaleChanged()
{
    keyboard->rescale();
    keyboard->move(0, getGdi().px(ROW));
    lights->rescale();
    lights->move(keyboard->width() - getGdi().px(MARGIN) - lights->width(), (getGdi().px(ROW) - lights->height()) / 2);
    handleDefaultMidiOutputChanged(gui.getDefaultMidiOutput());
}

void KeyboardPanel::displayMidiOutputEvent(const Backend::MidiEngine::OrvMidiMessage& event)
{
    keyboard->displayMidiOutputEvent(event);
    lights->displayMidiOutputEvent(event);
}

void KeyboardPanel::clearHilight()
{
    keyboard->clearHilight();
    lights->clear();
}

void KeyboardPanel::handleMidiOutputPortsChanged(const Backend::MidiEngine::MidiOutputPorts& ports)
{
    keyboard->handleMidiOutputPortsChanged(ports);
    handleDefaultMidiOutputChanged(gui.getDefaultMidiOutput());
}

void KeyboardPanel::handleDefaultMidiOutputChanged(int output)
{
    const QString name = output < 0 ? tr("none") : QString::fromStdString(gui.getMidiOutputName(output));
    outputName->setText(QFontMetrics(outputName->font()).elidedText(name, Qt::ElideRight, getGdi().px(NAME_WIDTH)));
    outputName->setAccessibleName(tr("Default output: %1").arg(name));
}
}  // namespace Gui::Output
