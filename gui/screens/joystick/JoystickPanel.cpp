#include "gui/screens/joystick/JoystickPanel.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <variant>

#include "api/OrvGuiIF.h"
#include "api/OrvIF.h"
#include "backend/messages/JoystickMessageManager.h"
#include "backend/model/PresetSections.h"
#include "backend/values/Scaling.h"
#include "gui/forms/BindingEditor.h"
#include "gui/forms/EditableSections.h"
#include "gui/forms/FunctionCaption.h"
#include "gui/forms/LearnButton.h"
#include "gui/framework/EditPoster.h"
#include "gui/framework/Fader.h"
#include "gui/framework/GuiMessageManagerMaster.h"
#include "gui/framework/Properties.h"
#include "gui/presets/SectionRow.h"
#include "gui/screens/joystick/AxisCurve.h"
#include "gui/screens/joystick/GridCtl.h"
#include "gui/screens/joystick/PartsCtl.h"

namespace Gui::Joystick
{
using namespace Backend::Joystick;
using Command = Forms::RecordEditor::Command;

namespace
{
constexpr int WIDTH = 960;  // logical pixels, as all of these
constexpr int MARGIN = 8;
constexpr int ROW = 22;
constexpr int STICK = (WIDTH - 3 * MARGIN) / 2;  // the width of a joystick
constexpr int NAMES_TOP = 32;
constexpr int ON_WIDTH = 50;
constexpr int GRIDS_TOP = 58;
constexpr QSize GRID(176, 128);
constexpr int UV_LEFT = GRID.width() + 16;
constexpr int FADER_LEFT = 2 * GRID.width() + 48;
constexpr int FADER_GAP = 40;
constexpr QSize FADER(20, 110);
constexpr int AXES_TOP = GRIDS_TOP + GRID.height() + MARGIN;
constexpr int BUTTON_LINES = 3;
constexpr int BUTTONS_TOP = AXES_TOP + 26;
constexpr int BUTTONS_HEIGHT = BUTTON_LINES * 30;
constexpr int HEIGHT = BUTTONS_TOP + BUTTONS_HEIGHT + MARGIN;
constexpr int SETTINGS_HEIGHT = 276;

constexpr int HIGHEST_FADER = 127;

constexpr int leftOf(int joystick) { return MARGIN + joystick * (STICK + MARGIN); }
}  // namespace

JoystickPanel::JoystickPanel(OrvGuiIF& owner, Panel* around)
    : Panel(around),
      gui(owner),
      axes(lists),
      buttons(owner.getOrvIF(), lists),
      axisEditor(axes, owner.getEdits(), [this](const QString& text) { gui.displayMessage(text.toStdString()); }),
      buttonEditor(buttons, owner.getEdits(), [this](const QString& text) { gui.displayMessage(text.toStdString()); }),
      edited(&buttonEditor),
      messages(*this)
{
    // Before the settings, which are made from the lists.
    axisEditor.observe(*this, [this] { openSettings(axisEditor, buttonEditor); });
    buttonEditor.observe(*this, [this] { openSettings(buttonEditor, axisEditor); });
    makeTopRow();
    for (int joystick = 0; joystick < JOYSTICKS; ++joystick) makeStick(joystick);
    makeParts();
    makeSettings();
    for (Forms::RecordEditor* const editor : {&axisEditor, &buttonEditor}) editor->observe(*this, [this] { fit(); });
    fit();
    gui.getGuiMessageManagerMaster().addMessageManager(&messages);
}

void JoystickPanel::makeTopRow()
{
    auto& row = *new Preset::SectionRow(gui, Backend::PresetSections::JOYSTICK, this);
    place(row, {row.PLACE, row.SIZE});
    editButton = &row.addButton(tr("Edit"), tr("Edit joysticks"),
                                tr("On: a click selects buttons, and beneath them stands what they do. Off: a click "
                                   "plays a button, and a click with the right button edits it."));
    editButton->setCheckable(true);
    connect(editButton, &QPushButton::clicked, [this](bool on) { edited->setOpen(on); });

    auto* const learn = new Forms::LearnButton(gui.getLearner(), {.joystickButton = true, .joystickAxis = true}, &row);
    row.addButton(*learn);
    learn->onLearned = [this](const auto& input) {
        const auto* const button = std::get_if<JoyButtonElementId>(&input);
        Forms::RecordEditor& editor = button != nullptr ? buttonEditor : axisEditor;
        editor.getSelection().select(
            {button != nullptr ? JoystickButtonRecords::idOf(*button) : AxisRecords::idOf(std::get<AxisId>(input))});
        editor.setOpen(true);
    };
}

void JoystickPanel::makeStick(int joystick)
{
    Stick& stick = sticks[static_cast<std::size_t>(joystick)];
    const int left = leftOf(joystick);
    stick.device = new QLabel(this);
    place(*stick.device, {left, NAMES_TOP, STICK - ON_WIDTH, ROW});
    stick.device->setTextFormat(Qt::PlainText);
    handleDevice(joystick, false, {});
    stick.isOn = new QCheckBox(tr("On"), this);
    place(*stick.isOn, {left + STICK - ON_WIDTH, NAMES_TOP, ON_WIDTH, ROW});
    stick.isOn->setAccessibleName(tr("Joystick %1 on").arg(joystick + 1));
    stick.isOn->setChecked(true);
    Property::setHelp(*stick.isOn, tr("Off: what this joystick does is ignored. Its controls in the window play on. "
                                      "This is saved with the program."));
    connect(stick.isOn, &QCheckBox::clicked, this, [this, joystick](bool on) { enable(joystick, on); });

    stick.xy = &makeGrid(joystick, "X", "Y", {QPoint(left, GRIDS_TOP), GRID});
    stick.uv = &makeGrid(joystick, "U", "V", {QPoint(left + UV_LEFT, GRIDS_TOP), GRID});
    stick.z = &makeFader(joystick, "Z", left + FADER_LEFT);
    stick.r = &makeFader(joystick, "R", left + FADER_LEFT + FADER_GAP);
}

GridCtl& JoystickPanel::makeGrid(int joystick, const char* across, const char* up, const QRect& where)
{
    auto* const grid = new GridCtl(gui, QString::fromLatin1(across), QString::fromLatin1(up), this);
    place(*grid, where);
    grid->setAccessibleName(tr("Joystick %1 %2 and %3").arg(joystick + 1).arg(across, up));
    auto& commands = gui.getOrvIF().getJoystickMessageManager();
    const std::array parts{findAxis(across), findAxis(up)};
    grid->onMove = [&commands, joystick, isXy = parts[0] == 0](int x, int y) {
        isXy ? commands.postXyGrid(joystick, AxisMode::position, x, y)
             : commands.postUvGrid(joystick, AxisMode::position, x, y);
    };
    grid->onStep = [&commands, joystick, parts](GridCtl::Part part, int position) {
        commands.postGuiAxis({joystick, parts[part]}, AxisMode::position, position);
    };
    return *grid;
}

Fader& JoystickPanel::makeFader(int joystick, const char* axis, int left)
{
    auto* const fader = new Fader(gui, Qt::Vertical, this);
    place(*fader, {QPoint(left, GRIDS_TOP), FADER});
    fader->setAccessibleName(tr("Joystick %1 %2").arg(joystick + 1).arg(axis));
    Property::setHelp(*fader, tr("%1: drag to play this axis, also while the joystick is off.").arg(axis));
    fader->showValue((HIGHEST_FADER + 1) / 2);
    auto& commands = gui.getOrvIF().getJoystickMessageManager();
    fader->onChange = [&commands, id = AxisId{joystick, findAxis(axis)}](int value) {
        commands.postGuiAxis(id, AxisMode::position, scaleRange(0, HIGHEST_FADER, value, 0, GridCtl::HIGHEST));
    };
    auto* const label = new QLabel(QString::fromLatin1(axis), this);
    label->setAlignment(Qt::AlignCenter);
    place(*label, {left, GRIDS_TOP + FADER.height(), FADER.width(), GRID.height() - FADER.height()});
    return *fader;
}

void JoystickPanel::makeParts()
{
    axisParts = new PartsCtl(gui, axisEditor,
                             {.lines = 1,
                              .labelOf =
                                  [](PartsCtl::Id id) {
                                      const std::string name(getAxisName(AxisRecords::axisOf(id).axis));
                                      return QString::fromStdString(name);
                                  },
                              .captionOf = [this](PartsCtl::Id id) { return axes.captionOf(id); }},
                             this);
    axisParts->setAccessibleName(tr("Axes"));
    place(*axisParts, {MARGIN, AXES_TOP, WIDTH - 2 * MARGIN, ROW});
    const auto play = [this](PartsCtl::Id id, PartsCtl::Press press) {
        auto& commands = gui.getOrvIF().getJoystickMessageManager();
        const JoyButtonElementId button = JoystickButtonRecords::buttonOf(id);
        press == PartsCtl::Press::up ? commands.postGuiButtonUp(button)
                                     : commands.postGuiButtonDown(button, press == PartsCtl::Press::repeat);
    };
    buttonParts = new PartsCtl(
        gui, buttonEditor,
        {.lines = BUTTON_LINES,
         .labelOf = JoystickButtonRecords::labelOf,
         .captionOf = [this](PartsCtl::Id id) { return Forms::FunctionCaption::captionOf(buttons.get(id), zones); },
         .play = play},
        this);
    buttonParts->setAccessibleName(tr("Buttons"));
    place(*buttonParts, {MARGIN, BUTTONS_TOP, WIDTH - 2 * MARGIN, BUTTONS_HEIGHT});
    gui.getEditableSections().add(axisEditor, *axisParts);
    gui.getEditableSections().add(buttonEditor, *buttonParts);
}

void JoystickPanel::makeSettings()
{
    settings = new QWidget(this);
    place(*settings, {MARGIN, HEIGHT, WIDTH - 2 * MARGIN, SETTINGS_HEIGHT - MARGIN});
    auto* const column = new QVBoxLayout(settings);
    column->setContentsMargins({});
    auto* const line = new QHBoxLayout;
    column->addLayout(line);
    title = new QLabel;
    Property::set(*title, Property::TEXT, true);
    line->addWidget(title, 1);
    const auto make = [&](const QString& text, Command command, const QString& help) {
        auto* const button = new QPushButton(text);
        button->setFocusPolicy(Qt::TabFocus);
        button->setAccessibleName(tr("%1 selected").arg(text));
        Property::setHelp(*button, help);
        connect(button, &QPushButton::clicked, this, [this, command] { edited->execute(command); });
        line->addWidget(button);
    };
    make(tr("Copy"), Command::copy, tr("Copies what the selected axes or buttons do."));
    make(tr("Paste"), Command::paste,
         tr("Makes the selected ones do what was copied; from one on, if several were copied."));
    make(tr("Clear"), Command::remove, tr("The selected ones do nothing any more."));

    auto* const curve = new AxisCurve(gui);
    auto* const axisEvents = new Forms::BindingEditor(gui, axisEditor, axes, curve);
    axisEvents->onShown = [this, curve](Backend::RecordId first, int row) {
        curve->show(axes.getFunction(first, row));
    };
    axisSettings = axisEvents;
    column->addWidget(axisSettings, 1);
    buttonSettings = new Forms::BindingEditor(gui, buttonEditor, buttons, Forms::BindingEditor::Of::functions);
    column->addWidget(buttonSettings, 1);
}

/// Those of one kind at a time.
void JoystickPanel::openSettings(Forms::RecordEditor& opened, Forms::RecordEditor& other)
{
    if (!opened.isOpen()) return;
    edited = &opened;
    lists = Forms::takeLists(gui);
    other.setOpen(false);
}

void JoystickPanel::fit()
{
    const bool isOpen = edited->isOpen();
    editButton->setChecked(isOpen);
    axisParts->setEditing(isOpen);
    buttonParts->setEditing(isOpen);
    settings->setVisible(isOpen);
    axisSettings->setVisible(edited == &axisEditor);
    buttonSettings->setVisible(edited == &buttonEditor);
    const auto selected = edited->getSelection().getSelected();
    const auto& records = edited->getRecords();
    QString text = selected.size() == 1 ? records.nameOf(selected.front())
                                        : QStringLiteral("%1 %2").arg(selected.size()).arg(records.getKind().many);
    text[0] = text[0].toUpper();
    title->setText(selected.empty() ? tr("Click an axis or a button, or click LEARN and move one.") : text);
    setPanelSize({WIDTH, HEIGHT + (isOpen ? SETTINGS_HEIGHT : 0)});
}

/// An edit of the section: it can be undone, and is saved.
void JoystickPanel::enable(int joystick, bool on)
{
    QStringList off;
    for (int each = 0; each < JOYSTICKS; ++each)
        if (!sticks[static_cast<std::size_t>(each)].isOn->isChecked()) off << QString::number(each);
    gui.getEdits().change(Backend::PresetSections::JOYSTICK.rootElement, Backend::SECTION_RECORD,
                          {"disabled", off.join(',').toStdString()},
                          tr(on ? "joystick %1 on" : "joystick %1 off").arg(joystick + 1).toStdString(),
                          gui.getEdits().beginGesture());
}

// --- changes that the backend reports

void JoystickPanel::handleButtons(const std::vector<JoystickButtonConfiguration>& changed)
{
    buttonEditor.report([this, changed] { buttons.take(changed); });
}

void JoystickPanel::handleAxes(const std::vector<AxisConfiguration>& changed)
{
    axisEditor.report([this, changed] { axes.take(changed); });
}

void JoystickPanel::handleEnabled(int joystick, bool on)
{
    QCheckBox& box = *sticks[static_cast<std::size_t>(joystick)].isOn;
    const QSignalBlocker quiet(box);
    box.setChecked(on);
}

void JoystickPanel::handleButtonDown(const JoystickElement& button)
{
    buttonParts->showDown(JoystickButtonRecords::idOf({button.joystick, button.part}), true);
}

void JoystickPanel::handleButtonUp(const JoystickElement& button)
{
    buttonParts->showDown(JoystickButtonRecords::idOf({button.joystick, button.part}), false);
}

/// A position that sends this value already stays: values are coarser than positions.
void JoystickPanel::handleAxis(std::uint32_t axisAndValue, std::int32_t limits)
{
    constexpr int BITS = 16;
    const JoystickElement element = JoystickElement::fromPacked(axisAndValue & 0xFFFF);
    const AxisFunction reported{.min = static_cast<std::int16_t>(limits & 0xFFFF), .max = limits >> BITS};
    const int value = static_cast<std::int16_t>(axisAndValue >> BITS);
    const AxisId axis{element.joystick, element.part};
    if (!axis.isValid()) return;
    const Stick& stick = sticks[static_cast<std::size_t>(axis.joystick)];
    const auto showIn = [&](GridCtl& grid, GridCtl::Part part) {
        if (reported.scaled(grid.getPosition(part), AxisMode::position) != value)
            grid.showPosition(part, scaleRange(reported.min, reported.max, value, 0, GridCtl::HIGHEST));
    };
    const auto showAt = [&](Fader& fader) {
        const int position = scaleRange(0, HIGHEST_FADER, fader.value(), 0, GridCtl::HIGHEST);
        if (reported.scaled(position, AxisMode::position) != value)
            fader.showValue(scaleRange(reported.min, reported.max, value, 0, HIGHEST_FADER));
    };
    if (axis.axis == findAxis("X")) showIn(*stick.xy, GridCtl::across);
    if (axis.axis == findAxis("Y")) showIn(*stick.xy, GridCtl::up);
    if (axis.axis == findAxis("U")) showIn(*stick.uv, GridCtl::across);
    if (axis.axis == findAxis("V")) showIn(*stick.uv, GridCtl::up);
    if (axis.axis == findAxis("Z")) showAt(*stick.z);
    if (axis.axis == findAxis("R")) showAt(*stick.r);
}

void JoystickPanel::handleDevice(int joystick, bool present, const std::string& name)
{
    QLabel& device = *sticks[static_cast<std::size_t>(joystick)].device;
    const QString text = !present ? tr("not connected") : name.empty() ? tr("connected") : QString::fromStdString(name);
    device.setText(tr("Joystick %1: %2").arg(joystick + 1).arg(text));
    Property::set(device, Property::TEXT, present);
    device.update();
}

void JoystickPanel::handleZones(const Backend::Zones::ZoneMap& newZones)
{
    zones = newZones;
    buttonParts->update();
}

void JoystickPanel::handleZoneTranspose(Backend::Zones::ZoneId zone, int transpose)
{
    auto* const changed = zones.findElement(zone);
    if (changed == nullptr) return;
    changed->transpose = static_cast<std::int8_t>(transpose);
    buttonParts->update();
}
}  // namespace Gui::Joystick
