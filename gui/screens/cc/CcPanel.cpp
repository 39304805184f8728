#include "gui/screens/cc/CcPanel.h"

#include <QLabel>
#include <QPushButton>
#include <algorithm>
#include <chrono>
#include <string>
#include <utility>

#include "api/OrvGuiIF.h"
#include "api/OrvMessageManager.h"
#include "backend/files/RegistrySettings.h"
#include "backend/messages/SettingMessages.h"
#include "backend/model/Settings.h"
#include "backend/values/ProgramNames.h"
#include "gui/framework/ComboBox.h"
#include "gui/framework/GdiManager.h"
#include "gui/framework/Properties.h"
#include "gui/screens/cc/CcRow.h"

namespace Gui::Cc
{
using namespace Backend;
using MidiEngine::MessageType;

namespace
{
constexpr int VALUES = 128;
constexpr int CHANNELS = 16;
constexpr std::size_t MOST_ROWS = 32;
constexpr auto SHOW_INTERVAL = std::chrono::milliseconds(33);

// Logical pixels
constexpr int WIDTH = 960;
constexpr int MARGIN = 8;
constexpr int TOP = 4;
constexpr int HEIGHT = 20;
constexpr int ROWS_TOP = TOP + HEIGHT + 8;
constexpr int ROW_WIDTH = 464;
constexpr int ROW_HEIGHT = 24;
constexpr int COLUMNS = 2;
constexpr QRect OUTPUT(62, TOP, 180, HEIGHT);
constexpr QRect CHANNEL(318, TOP, 50, HEIGHT);
constexpr QRect PROGRAM(444, TOP, 180, HEIGHT);
constexpr QRect BANK_MSB(688, TOP, 50, HEIGHT);
constexpr QRect BANK_LSB(744, TOP, 50, HEIGHT);
constexpr QRect ADD(806, TOP, 64, HEIGHT);
constexpr QRect RESET(876, TOP, 76, HEIGHT);

QStringList numbersFrom(int first, int count)
{
    QStringList numbers;
    for (int number = first; number < first + count; ++number) numbers << QString::number(number);
    return numbers;
}

void setTexts(ComboBox& choices, const QStringList& texts)
{
    std::vector<ComboBox::Entry> entries;
    for (const QString& text : texts) entries.push_back({.text = text});
    choices.setEntries(std::move(entries));
}

std::vector<int> readControllers(const std::string& text)
{
    std::vector<int> controllers;
    for (const QString& word : QString::fromStdString(text).split(',', Qt::SkipEmptyParts)) {
        bool isNumber = false;
        const int controller = word.toInt(&isNumber);
        if (isNumber && controller >= 0 && controller < VALUES && controllers.size() < MOST_ROWS)
            controllers.push_back(controller);
    }
    return controllers;
}
}  // namespace

CcPanel::CcPanel(OrvGuiIF& owner, SentValues& sentValues, Panel* around) : Panel(around), gui(owner), sent(sentValues)
{
    nextShow.setSingleShot(true);
    connect(&nextShow, &QTimer::timeout, this, [this] {
        if (!isStale) return;
        showValues();
        nextShow.start(SHOW_INTERVAL);
    });
    makeTopRow();
    handleMidiOutputPortsChanged(gui.getMidiOutputPorts());
    handleSettingsChanged(gui.getRegistrySettings());
}

void CcPanel::makeTopRow()
{
    const auto label = [this](const QString& text, const QRect& beside) {
        constexpr int LABEL_WIDTH = 70;
        auto* const line = new QLabel(text, this);
        line->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        place(*line,
              {std::max(0, beside.left() - 6 - LABEL_WIDTH), TOP, std::min(LABEL_WIDTH, beside.left() - 6), HEIGHT});
    };
    label(tr("Output:"), OUTPUT);
    output = makeChoices(OUTPUT, tr("Output of the controllers"), tr("The output to which this section sends."));
    output->onChange = [this](int chosen) {
        gui.getOrvMessageManager().postSetting(SETTING<Backend::Settings::CC_OUTPUT>(chosen - 1));
    };
    label(tr("Channel:"), CHANNEL);
    channel = makeChoices(CHANNEL, tr("Channel of the controllers"), tr("The channel on which this section sends."));
    setTexts(*channel, numbersFrom(1, CHANNELS));
    channel->onChange = [this](int chosen) {
        gui.getOrvMessageManager().postSetting(SETTING<Backend::Settings::CC_CHANNEL>(chosen));
    };

    label(tr("Program:"), PROGRAM);
    program = makeChoices(PROGRAM, tr("Program of the channel"),
                          tr("Sends a program change, by the names of General MIDI, with the bank beside it."));
    QStringList names;
    for (int number = 0; number < VALUES; ++number) names << QString::fromStdString(MidiEngine::getProgramName(number));
    setTexts(*program, names);
    label(tr("Bank:"), BANK_MSB);
    bankMsb = makeChoices(BANK_MSB, tr("Bank MSB"), tr("The upper part of the bank's number; blank: none is sent."));
    bankLsb = makeChoices(BANK_LSB, tr("Bank LSB"), tr("The lower part of the bank's number; blank: none is sent."));
    for (ComboBox* const each : {bankMsb, bankLsb}) setTexts(*each, QStringList(QString()) + numbersFrom(0, VALUES));
    for (ComboBox* const each : {program, bankMsb, bankLsb}) each->onChange = [this](int) { sendProgram(); };

    connect(makeButton(ADD, tr("Add"), tr("Add a controller"), tr("Adds a row, with a controller of its own.")),
            &QPushButton::clicked, this, [this] { addRow(); });
    connect(makeButton(RESET, tr("Reset"), tr("Reset all controllers"),
                       tr("Sends Reset All Controllers. Volume, pan, effects and program stay.")),
            &QPushButton::clicked, this, [this] { sendController(SentValues::RESET_ALL, 0); });
}

ComboBox* CcPanel::makeChoices(const QRect& rectangle, const QString& name, const QString& help)
{
    auto* const choices = new ComboBox(gui, ComboBox::Typing::readOnly, this);
    place(*choices, rectangle);
    choices->setAccessibleName(name);
    Property::setHelp(*choices, help);
    Property::set(*choices, Property::TEXT, true);
    return choices;
}

QPushButton* CcPanel::makeButton(const QRect& rectangle, const QString& text, const QString& name, const QString& help)
{
    auto* const button = new QPushButton(text, this);
    place(*button, rectangle);
    button->setFocusPolicy(Qt::TabFocus);
    button->setAccessibleName(name);
    Property::setHelp(*button, help);
    return button;
}

// --- the rows

void CcPanel::showRows(const std::vector<int>& controllers)
{
    while (rows.size() > controllers.size()) {
        rows.back()->hide();
        rows.back()->deleteLater();  // it may have called
        rows.pop_back();
    }
    while (rows.size() < controllers.size()) {
        auto* const row = new CcRow(gui, this);
        const int index = static_cast<int>(rows.size());
        place(*row, {MARGIN + index % COLUMNS * (ROW_WIDTH + MARGIN), ROWS_TOP + index / COLUMNS * ROW_HEIGHT,
                     ROW_WIDTH, ROW_HEIGHT});
        row->onValue = [this, row](int value) { sendController(row->getController(), value); };
        row->onController = [this, row](int controller) {
            row->showController(controller);
            postRows();
        };
        row->onRemove = [this, index] {
            std::vector<int> others;
            for (std::size_t i = 0; i < rows.size(); ++i)
                if (i != static_cast<std::size_t>(index)) others.push_back(rows[i]->getController());
            showRows(others);
            postRows();
        };
        row->show();
        rows.push_back(row);
    }
    for (std::size_t i = 0; i < rows.size(); ++i) rows[i]->showController(controllers[i]);
    const int lines = (static_cast<int>(rows.size()) + COLUMNS - 1) / COLUMNS;
    setPanelSize({WIDTH, ROWS_TOP + lines * ROW_HEIGHT + TOP});
    showValues();
}

void CcPanel::postRows()
{
    QStringList numbers;
    for (const CcRow* const row : rows) numbers << QString::number(row->getController());
    gui.getOrvMessageManager().postSetting(SETTING<Backend::Settings::CC_CONTROLLERS>(numbers.join(',').toStdString()));
    showValues();
}

/// With the first controller that has no row.
void CcPanel::addRow()
{
    std::vector<int> controllers;
    for (const CcRow* const row : rows) controllers.push_back(row->getController());
    if (controllers.size() >= MOST_ROWS) return gui.displayMessage(tr("There is no room for more rows.").toStdString());
    int next = 1;
    while (std::ranges::find(controllers, next) != controllers.end()) ++next;
    controllers.push_back(next);
    showRows(controllers);
    postRows();
}

// --- changes that the backend reports

void CcPanel::handleSettingsChanged(const RegistrySettings& settings)
{
    output->setSelectedIndex(settings.get<Backend::Settings::CC_OUTPUT>() + 1);
    channel->setSelectedIndex(settings.get<Backend::Settings::CC_CHANNEL>());
    showRows(readControllers(settings.get<Backend::Settings::CC_CONTROLLERS>()));
}

void CcPanel::handleMidiOutputPortsChanged(const MidiEngine::MidiOutputPorts& ports)
{
    const int chosen = output->getSelectedIndex();
    QStringList names(tr("Default output"));
    for (const auto& port : ports) names << QString::fromStdString(port.getDisplayName());
    setTexts(*output, names);
    output->setSelectedIndex(chosen);
}

void CcPanel::handleDefaultMidiOutputChanged() { showValues(); }

void CcPanel::handleSent()
{
    isStale = true;
    if (!isVisible() || nextShow.isActive()) return;
    showValues();
    nextShow.start(SHOW_INTERVAL);
}

void CcPanel::showEvent(QShowEvent* event)
{
    showValues();
    Panel::showEvent(event);
}

// --- values

SentValues::Place CcPanel::getPlace() const
{
    const int chosen = output->getSelectedIndex() - 1;
    return {chosen < 0 ? gui.getDefaultMidiOutput() : chosen, std::max(0, channel->getSelectedIndex())};
}

void CcPanel::showValues()
{
    isStale = false;
    const SentValues::Place place = getPlace();
    for (CcRow* const row : rows) row->showValue(sent.getController(place, row->getController()));
    program->setSelectedIndex(sent.getProgram(place).value_or(-1));
    bankMsb->setSelectedIndex(1 + sent.getController(place, SentValues::BANK_MSB).value_or(-1));
    bankLsb->setSelectedIndex(1 + sent.getController(place, SentValues::BANK_LSB).value_or(-1));
}

void CcPanel::sendController(int controller, int value)
{
    send({.type = MessageType::controllerChange, .d1 = controller, .d2 = value});
}

/// A bank counts from the next program change on.
void CcPanel::sendProgram()
{
    const int number = program->getSelectedIndex();
    if (bankMsb->getSelectedIndex() > 0) sendController(SentValues::BANK_MSB, bankMsb->getSelectedIndex() - 1);
    if (bankLsb->getSelectedIndex() > 0) sendController(SentValues::BANK_LSB, bankLsb->getSelectedIndex() - 1);
    if (number >= 0) send({.type = MessageType::programChange, .d1 = number});
}

/// Past the layers.
void CcPanel::send(const MidiEngine::OrvMidiMessage::Fields& event)
{
    const SentValues::Place place = getPlace();
    if (place.output < 0) return gui.displayMessage(tr("There is no MIDI output.").toStdString());
    MidiEngine::OrvMidiMessage whole(event);
    whole.setOutput(place.output);
    whole.setChannel(place.channel);
    sent.takeOwn(whole);
    gui.getOrvMessageManager().postPlayMidi(whole);
}
}  // namespace Gui::Cc
