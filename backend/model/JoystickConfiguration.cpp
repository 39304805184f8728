#include "backend/model/JoystickConfiguration.h"

#include "backend/xml/XmlElement.h"
#include "platform/DbgStream.h"

namespace Backend::Joystick
{
namespace
{
template <class Map, class Visit>
void forEach(const Map& map, Visit&& visit)
{
    const auto iterator = map.createIterator();
    while (const auto* element = iterator->next()) visit(*element);
}

template <class Map, class Configuration>
void putValid(Map& map, const Configuration& configuration)
{
    if (configuration.id.isValid())
        map.put(configuration.id, configuration);
    else
        WindowsLib::DbgStream() << "no such part of joystick " << configuration.id.joystick << ", ignored";
}

template <class Configuration, class Map>
std::vector<Configuration> all(const Map& map)
{
    std::vector<Configuration> elements;
    elements.reserve(map.size());
    forEach(map, [&](const Configuration& element) { elements.push_back(element); });
    return elements;
}
}  // namespace

void JoystickConfiguration::clear()
{
    for (int joystick = 0; joystick < JOYSTICKS; ++joystick) {
        for (int button = 0; button < BUTTONS; ++button) put(JoystickButtonConfiguration({joystick, button}));
        for (int axis = 0; axis < static_cast<int>(JOY_AXES.size()); ++axis)
            put(AxisConfiguration{.id = {joystick, axis}});
    }
}

void JoystickConfiguration::put(const JoystickButtonConfiguration& button) { putValid(buttons, button); }

void JoystickConfiguration::put(const AxisConfiguration& axis) { putValid(axes, axis); }

void JoystickConfiguration::readXml(const XmlElement& section, const FunctionManagement::FunctionFactory& create)
{
    forEachElement(section, [&](const XmlElement& child) {
        if (child.getTagName() == "Axis") put(AxisConfiguration::fromXml(child));
        if (child.getTagName() == "Button") put(JoystickButtonConfiguration::fromXml(child, create));
    });
}

void JoystickConfiguration::writeXml(std::ostream& out, int indent) const
{
    const auto write = [&](const auto& configuration) {
        if (!configuration.isEmpty()) configuration.writeXml(out, indent);
    };
    forEach(axes, write);
    forEach(buttons, write);
}

std::vector<JoystickButtonConfiguration> JoystickConfiguration::allButtons() const
{
    return all<JoystickButtonConfiguration>(buttons);
}

std::vector<AxisConfiguration> JoystickConfiguration::allAxes() const { return all<AxisConfiguration>(axes); }
}  // namespace Backend::Joystick
