#include "backend/sections/joystick/JoystickManager.h"

#include <bitset>
#include <string>

#include "api/OrvMessageManager.h"
#include "backend/bindings/functions/FunctionFactories.h"
#include "backend/messages/GuiMessages.h"
#include "backend/model/PresetSections.h"
#include "backend/sections/Learning.h"
#include "backend/xml/Text.h"
#include "backend/xml/XmlWriter.h"

namespace Backend::Joystick
{
namespace
{
constexpr const char* DISABLED_INPUTS = "DisabledInputs";
constexpr const char* DISABLED = "disabled";

constexpr bool isJoystick(int number) { return number >= 0 && number < JOYSTICKS; }

/// Packs two numbers of 16 bits.
constexpr std::uint32_t packed(std::uint32_t low, std::int32_t high)
{
    return (low & 0xFFFF) | static_cast<std::uint32_t>(high) << 16;
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

void axisFound(JoystickManager& manager, const JoystickElement& element, int value)
{
    manager.axisFound({element.joystick, element.part}, value);
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
                              on<DEVICE_CHANGED, &JoystickManager::setDevice>(),
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
                              on<AXIS_FOUND, &axisFound>(),
                              on<ENABLE_JOYSTICK, &JoystickManager::enableJoystick>(),
                          }) +
                          presetCommands<JoystickManager, JoystickMessage::Presets>();
}  // namespace

JoystickManager::JoystickManager(OrvIF& backend, MessageManagerMaster& master)
    : Section(backend, PresetSections::JOYSTICK),
      messageManager(master, [this](Message& message) { execute<JoystickManager>(COMMANDS, *this, message); }),
      listener(messageManager),
      engine(listener)
{
}

// --- files

void JoystickManager::readContent(const XmlElement& section, JoystickConfiguration& into)
{
    // First, so that held buttons are released by the functions with which they were pressed.
    forEachElement(section, [this](const XmlElement& child) {
        if (child.getTagName() == DISABLED_INPUTS) setDisabled(child.getText());
    });
    if (!section.getBoolAttribute("merge", false)) into.clear();
    into.readXml(section, functionFactory());
}

FunctionManagement::FunctionFactory JoystickManager::functionFactory() const
{
    return [this](const XmlElement& element) { return FunctionManagement::createFunctionFromXml(element, orv); };
}

/// Their numbers, "0,1".
void JoystickManager::setDisabled(const std::string& numbers)
{
    std::bitset<JOYSTICKS> listed;
    for (std::string_view rest = numbers; !rest.empty();) {
        const int joystick = Text::parseInteger(Text::nextToken(rest, ',')).value_or(-1);
        if (isJoystick(joystick)) listed.set(static_cast<std::size_t>(joystick));
    }
    for (int joystick = 0; joystick < JOYSTICKS; ++joystick)
        enableJoystick(joystick, !listed[static_cast<std::size_t>(joystick)]);
}

void JoystickManager::writeXml(std::ostream& out, int indent, std::span<const JoyButtonElementId>) const
{
    const std::string tabs(static_cast<std::size_t>(indent), '\t');
    out << tabs << xmlOpenTag(getTag()) << xmlBoolAttribute("merge", false) << xmlCloseOpen() << '\n';
    getContent().writeXml(out, indent + 1);
    out << tabs << '\t' << xmlStartTag(DISABLED_INPUTS) << disabledNumbers() << xmlEndTag(DISABLED_INPUTS) << '\n'
        << tabs << xmlEndTag(getTag()) << '\n';
}

std::string JoystickManager::disabledNumbers() const
{
    std::string numbers;
    for (int joystick = 0; joystick < JOYSTICKS; ++joystick)
        if (isDisabled(joystick)) numbers += (numbers.empty() ? "" : ",") + std::to_string(joystick);
    return numbers;
}

// --- edits

std::vector<RecordId> JoystickManager::getRecordIds() const
{
    const auto recordOf = [](const auto& part) { return JoystickConfiguration::recordOf(part.id); };
    std::vector<RecordId> ids = recordIds(getContent().buttons, recordOf);
    for (const RecordId axis : recordIds(getContent().axes, recordOf)) ids.push_back(axis);
    ids.push_back(SECTION_RECORD);
    return ids;
}

std::string JoystickManager::writeRecord(RecordId id) const
{
    if (id == SECTION_RECORD)
        return xmlOpenTag(getTag()) + xmlStringAttribute(DISABLED, disabledNumbers()) + xmlCloseEmpty();
    if (const auto* const button = getContent().buttons.findElement(JoystickConfiguration::buttonOf(id)))
        return textOf(button);
    return textOf(getContent().axes.findElement(JoystickConfiguration::axisOf(id)));
}

void JoystickManager::replaceRecord(RecordId id, const XmlElement& element)
{
    if (id == SECTION_RECORD) return setDisabled(element.getAttribute(DISABLED));
    if (JoystickConfiguration::buttonOf(id).isValid()) {
        auto button = JoystickButtonConfiguration::fromXml(element, functionFactory());
        button.id = JoystickConfiguration::buttonOf(id);
        edit().put(button);
    } else if (JoystickConfiguration::axisOf(id).isValid()) {
        auto axis = AxisConfiguration::fromXml(element);
        axis.id = JoystickConfiguration::axisOf(id);
        edit().put(axis);
    }
}

// --- playing

void JoystickManager::setAxis(const JoyAxisElementId& id, AxisMode mode, int value, Source source)
{
    if (source == Source::joystick && isDisabled(id.joystick)) return orv.getLearning().setAxis(id, value);
    if (source == Source::joystick && orv.getLearning().takeAxis(id, value)) return;
    const AxisConfiguration* const axis = getContent().axes.findElement(id);
    if (axis == nullptr) return;
    for (const AxisFunction& function : axis->functions) {
        if (!function.midiMessage.isValid()) return;
        const std::int32_t scaled = function.scaled(value, mode);
        orv.getOrvMessageManager().postPlayMidi(function.eventOf(scaled));
        if (&function == &axis->functions.front())
            postToGui(GuiMessage::JOYSTICK_AXIS, packed(JoystickElement{id.joystick, id.axis}.getPacked(), scaled),
                      static_cast<std::int32_t>(packed(static_cast<std::uint32_t>(function.min), function.max)));
    }
}

void JoystickManager::pressButton(const JoyButtonElementId& id, ButtonEvent event, Source source)
{
    if (source == Source::joystick && isDisabled(id.joystick)) return;
    if (source == Source::joystick && orv.getLearning().takeButton(id, event)) return;
    const JoystickElement which{id.joystick, id.button};
    const auto place = static_cast<std::int32_t>(which.getPacked());
    const std::optional<JoystickButtonConfiguration> own = keptFunctions(id, event);
    const JoystickButtonConfiguration* const button = own ? &*own : getContent().buttons.findElement(id);
    if (button == nullptr) {
        if (event == ButtonEvent::up) downRuns.forget(place);
        return;
    }
    if (source == Source::joystick && event == ButtonEvent::down) held.insert(id);
    if (source == Source::joystick && event == ButtonEvent::up) held.erase(id);
    runButton(*button, event, downRuns, place);
    if (event == ButtonEvent::down) postToGui(GuiMessage::JOYSTICK_BUTTON_DOWN, which);
    if (event == ButtonEvent::up) postToGui(GuiMessage::JOYSTICK_BUTTON_UP, which);
}

void JoystickManager::axisFound(const JoyAxisElementId& id, int value) { orv.getLearning().setAxis(id, value); }

/// What the button kept when it went down; nothing if it has the functions of the moment.
std::optional<JoystickButtonConfiguration> JoystickManager::keptFunctions(const JoyButtonElementId& id,
                                                                          ButtonEvent event)
{
    if (event == ButtonEvent::down && keepsNotes())
        if (const auto* const bound = getContent().buttons.findElement(id)) kept.emplace(id, *bound);
    const auto found = kept.find(id);
    if (found == kept.end()) return std::nullopt;
    std::optional functions = found->second;
    if (event == ButtonEvent::up) kept.erase(found);
    return functions;
}

void JoystickManager::setDevice(int joystick, bool present, const std::string& name)
{
    if (!isJoystick(joystick)) return;
    devices[static_cast<std::size_t>(joystick)] = present ? std::optional(name) : std::nullopt;
    if (orv.getGuiWindowHandle()) showDevice(joystick);
}

void JoystickManager::showDevice(int joystick) const
{
    const auto& name = devices[static_cast<std::size_t>(joystick)];
    postToGui(GuiMessage::JOYSTICK_DEVICE, joystick, name.has_value(), name.value_or(""));
}

bool JoystickManager::isDisabled(int joystick) const
{
    return isJoystick(joystick) && getContent().disabled[static_cast<std::size_t>(joystick)];
}

void JoystickManager::enableJoystick(int joystick, bool enabled)
{
    if (!isJoystick(joystick)) return;
    if (!enabled) releaseHeldButtons(joystick);
    edit().disabled.set(static_cast<std::size_t>(joystick), !enabled);
    postToGui(GuiMessage::JOYSTICK_ENABLED, joystick, enabled);
}

void JoystickManager::releaseHeldButtons(int joystick)
{
    const auto buttons = held;
    for (const JoyButtonElementId& id : buttons)
        if (id.joystick == joystick) pressButton(id, ButtonEvent::up, Source::joystick);
}

void JoystickManager::getNoteSpans(std::vector<FunctionManagement::FunctionNoteSpan>& result) const
{
    const auto iterator = getContent().buttons.createIterator();
    while (const JoystickButtonConfiguration* button = iterator->next()) appendNoteSpans(*button, result);
}

// --- requests of the window

void JoystickManager::setButtonConfigurations(const std::vector<JoystickButtonConfiguration>& buttons, bool notify)
{
    for (const JoystickButtonConfiguration& button : buttons) edit().put(button);
    updatePlaying();
    if (notify) postToGui(GuiMessage::JOYSTICK_BUTTONS, buttons);
}

void JoystickManager::setAxisConfigurations(const std::vector<AxisConfiguration>& axes, bool notify)
{
    for (const AxisConfiguration& axis : axes) edit().put(axis);
    if (notify) postToGui(GuiMessage::JOYSTICK_AXES, axes);
}

void JoystickManager::notifyGui() const
{
    if (!orv.getGuiWindowHandle()) return;
    postToGui(GuiMessage::JOYSTICK_BUTTONS, getContent().allButtons());
    postToGui(GuiMessage::JOYSTICK_AXES, getContent().allAxes());
    for (int joystick = 0; joystick < JOYSTICKS; ++joystick) {
        postToGui(GuiMessage::JOYSTICK_ENABLED, joystick, !isDisabled(joystick));
        showDevice(joystick);
    }
}
}  // namespace Backend::Joystick
