#include "backend/sections/joystick/JoystickManager.h"

#include <sstream>

#include "api/OrvIF.h"
#include "api/OrvMessageManager.h"
#include "backend/bindings/functions/FunctionFactories.h"
#include "backend/messages/GuiMessages.h"
#include "backend/model/PresetSections.h"
#include "backend/xml/Text.h"
#include "backend/xml/XmlDocument.h"
#include "backend/xml/XmlWriter.h"

namespace Backend::Joystick
{
namespace
{
constexpr const char* SECTION = PresetSections::JOYSTICK.rootElement;

constexpr bool isJoystick(int number) { return number >= 0 && number < JOYSTICKS; }

/// Two numbers of 16 bits each.
constexpr std::uint32_t packed(std::uint32_t low, std::int32_t high)
{
    return (low & 0xFFFF) | static_cast<std::uint32_t>(high) << 16;
}

constexpr std::uint32_t packedId(int joystick, int part)
{
    return static_cast<std::uint32_t>(joystick) | static_cast<std::uint32_t>(part) << 8;
}

// --- the commands of axes and buttons

template <int FIRST_AXIS, int SECOND_AXIS>
void moveGrid(JoystickManager& manager, const JoystickElement& element, const AxisPair& pair)
{
    manager.setAxis({element.joystick, FIRST_AXIS}, element.mode, pair.first, Source::gui);
    manager.setAxis({element.joystick, SECOND_AXIS}, element.mode, pair.second, Source::gui);
}

template <int AXIS>
void moveAxis(JoystickManager& manager, const JoystickElement& element, int value)
{
    manager.setAxis({element.joystick, AXIS}, element.mode, value, Source::gui);
}

template <Source SOURCE>
void moveAnyAxis(JoystickManager& manager, const JoystickElement& element, int value)
{
    manager.setAxis({element.joystick, element.part}, element.mode, value, SOURCE);
}

template <Source SOURCE>
void buttonDown(JoystickManager& manager, const JoystickElement& element, bool isRepeat)
{
    manager.pressButton({element.joystick, element.part}, isRepeat ? ButtonEvent::repeat : ButtonEvent::down, SOURCE);
}

template <Source SOURCE>
void buttonUp(JoystickManager& manager, const JoystickElement& element)
{
    manager.pressButton({element.joystick, element.part}, ButtonEvent::up, SOURCE);
}

constexpr int X = findAxis("X"), Y = findAxis("Y"), Z = findAxis("Z");
constexpr int R = findAxis("R"), U = findAxis("U"), V = findAxis("V");

using namespace JoystickMessage;
constexpr auto COMMANDS = std::to_array<Command<JoystickManager>>({
    on<SET_BUTTON_CONFIGURATIONS, &JoystickManager::setButtonConfigurations>(),
    on<SET_AXIS_CONFIGURATIONS, &JoystickManager::setAxisConfigurations>(),
    on<XY_GRID, &moveGrid<X, Y>>(),
    on<UV_GRID, &moveGrid<U, V>>(),
    on<X_AXIS, &moveAxis<X>>(),
    on<Y_AXIS, &moveAxis<Y>>(),
    on<Z_AXIS, &moveAxis<Z>>(),
    on<R_AXIS, &moveAxis<R>>(),
    on<U_AXIS, &moveAxis<U>>(),
    on<V_AXIS, &moveAxis<V>>(),
    on<JOYSTICK_AXIS, &moveAnyAxis<Source::joystick>>(),
    on<GUI_AXIS, &moveAnyAxis<Source::gui>>(),
    on<JOYSTICK_BUTTON_DOWN, &buttonDown<Source::joystick>>(),
    on<JOYSTICK_BUTTON_UP, &buttonUp<Source::joystick>>(),
    on<GUI_BUTTON_DOWN, &buttonDown<Source::gui>>(),
    on<GUI_BUTTON_UP, &buttonUp<Source::gui>>(),
    on<LOAD_PRESET, &JoystickManager::loadPreset>(),
    on<RENAME_PRESET, &JoystickManager::renamePreset>(),
    on<DELETE_PRESET, &JoystickManager::deletePreset>(),
    on<SAVE_PRESET, &JoystickManager::savePreset>(),
    on<ENABLE_JOYSTICK, &JoystickManager::enableJoystick>(),
});
}  // namespace

JoystickManager::JoystickManager(OrvIF& backend, MessageManagerMaster& master)
    : orv(backend),
      messageManager(master, [this](Message& message) { execute<JoystickManager>(COMMANDS, *this, message); }),
      listener(messageManager),
      presets(PresetSections::JOYSTICK),
      engine(listener)
{
}

// --- files

void JoystickManager::readXml(const XmlElement& section)
{
    if (section.getTagName() != SECTION) return;
    // First, so that what is held is released by the functions that it was pressed with.
    forEachElement(section, [this](const XmlElement& child) {
        if (child.getTagName() == "DisabledInputs") readDisabledInputs(child);
    });
    if (!section.getBoolAttribute("merge", false)) configuration.clear();
    configuration.readXml(
        section, [this](const XmlElement& element) { return FunctionManagement::createFunctionFromXml(element, orv); });
    publish();
}

void JoystickManager::readDisabledInputs(const XmlElement& section)
{
    const std::string text = section.getText();
    std::bitset<JOYSTICKS> listed;
    for (std::string_view rest = text; !rest.empty();) {
        const int joystick = Text::parseInteger(Text::nextToken(rest, ',')).value_or(-1);
        if (isJoystick(joystick)) listed.set(static_cast<std::size_t>(joystick));
    }
    for (int joystick = 0; joystick < JOYSTICKS; ++joystick)
        enableJoystick(joystick, !listed[static_cast<std::size_t>(joystick)]);
}

void JoystickManager::writeXml(std::ostream& out, int indent) const
{
    const std::string tabs(static_cast<std::size_t>(indent), '\t');
    out << tabs << xmlOpenTag(SECTION) << xmlBoolAttribute("merge", false) << xmlCloseOpen() << '\n';
    configuration.writeXml(out, indent + 1);
    out << tabs << xmlEndTag(SECTION) << '\n';
}

void JoystickManager::loadPreset(const std::string& name)
{
    const std::string path = presets.findPreset(name);
    if (!path.empty()) readXml(XmlDocument(path, XmlDocument::Source::file).getRoot());
}

void JoystickManager::savePreset(const std::string& name)
{
    presets.save(name, [this](std::string& text) {
        std::ostringstream out;
        writeXml(out, 0);
        text += out.str();
    });
}

void JoystickManager::renamePreset(const std::string& name, const std::string& newName)
{
    presets.rename(name, newName);
}

void JoystickManager::deletePreset(const std::string& name) { presets.remove(name); }

void JoystickManager::setDefaults()
{
    configuration.clear();
    publish();
}

// --- playing

void JoystickManager::setAxis(const JoyAxisElementId& id, AxisMode mode, int value, Source source)
{
    if (source == Source::joystick && isDisabled(id.joystick)) return;
    const AxisConfiguration* const axis = configuration.axes.findElement(id);
    if (axis == nullptr) return;
    for (const AxisFunction& function : axis->functions) {
        if (!function.midiMessage.isValid()) return;
        const std::int32_t scaled = function.scaled(value, mode);
        orv.getOrvMessageManager().postPlayMidi(function.eventOf(scaled));
        if (&function == &axis->functions.front())
            tellGui(
                {.number = GuiMessage::JOYSTICK_AXIS,
                 .wparam = packed(packedId(id.joystick, id.axis), scaled),
                 .lparam = static_cast<std::int32_t>(packed(static_cast<std::uint32_t>(function.min), function.max))});
    }
}

void JoystickManager::pressButton(const JoyButtonElementId& id, ButtonEvent event, Source source)
{
    if (source == Source::joystick && isDisabled(id.joystick)) return;
    const JoystickButtonConfiguration* const button = configuration.buttons.findElement(id);
    if (button == nullptr) return;
    if (source == Source::joystick && event == ButtonEvent::down) held.insert(id);
    if (source == Source::joystick && event == ButtonEvent::up) held.erase(id);
    runButton(*button, event);
    const std::uint32_t which = packedId(id.joystick, id.button);
    if (event == ButtonEvent::down) tellGui({.number = GuiMessage::JOYSTICK_BUTTON_DOWN, .wparam = which});
    if (event == ButtonEvent::up) tellGui({.number = GuiMessage::JOYSTICK_BUTTON_UP, .wparam = which});
}

bool JoystickManager::isDisabled(int joystick) const
{
    return isJoystick(joystick) && disabled[static_cast<std::size_t>(joystick)];
}

void JoystickManager::enableJoystick(int joystick, bool enabled)
{
    if (!isJoystick(joystick)) return;
    if (!enabled) releaseHeldButtons(joystick);
    disabled.set(static_cast<std::size_t>(joystick), !enabled);
    tellGui(
        {.number = GuiMessage::JOYSTICK_ENABLED, .wparam = static_cast<std::uint32_t>(joystick), .lparam = enabled});
}

void JoystickManager::releaseHeldButtons(int joystick)
{
    const auto buttons = held;
    for (const JoyButtonElementId& id : buttons)
        if (id.joystick == joystick) pressButton(id, ButtonEvent::up, Source::joystick);
}

void JoystickManager::getNoteSpans(std::vector<FunctionManagement::FunctionNoteSpan>& result) const
{
    const auto iterator = configuration.buttons.createIterator();
    while (const JoystickButtonConfiguration* button = iterator->next()) appendNoteSpans(*button, result);
}

// --- the window

void JoystickManager::setButtonConfigurations(const std::vector<JoystickButtonConfiguration>& buttons, bool notifyGui)
{
    for (const JoystickButtonConfiguration& button : buttons) configuration.put(button);
    orv.updateZones();
    if (notifyGui && orv.getGuiWindowHandle())
        tellGui({.number = GuiMessage::JOYSTICK_BUTTONS,
                 .payload = Payload::of(std::vector<JoystickButtonConfiguration>(buttons))});
}

void JoystickManager::setAxisConfigurations(const std::vector<AxisConfiguration>& axes, bool notifyGui)
{
    for (const AxisConfiguration& axis : axes) configuration.put(axis);
    if (notifyGui && orv.getGuiWindowHandle())
        tellGui({.number = GuiMessage::JOYSTICK_AXES, .payload = Payload::of(std::vector<AxisConfiguration>(axes))});
}

void JoystickManager::publish()
{
    orv.updateZones();
    if (!orv.getGuiWindowHandle()) return;
    tellGui({.number = GuiMessage::JOYSTICK_BUTTONS, .payload = Payload::of(configuration.allButtons())});
    tellGui({.number = GuiMessage::JOYSTICK_AXES, .payload = Payload::of(configuration.allAxes())});
}

void JoystickManager::tellGui(Message message) const { orv.getGuiWindowHandle().post(std::move(message)); }
}  // namespace Backend::Joystick
