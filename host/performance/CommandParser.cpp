#include "host/performance/CommandParser.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>

#include "api/FunctionText.h"
#include "host/common/InputError.h"
#include "host/common/SetupFile.h"
#include "platform/Path.h"

namespace Host
{
namespace
{
constexpr int HIGHEST_PORT = 127;
constexpr int HIGHEST_ZONE = 127;
constexpr int HIGHEST_CHANNEL = 15;
constexpr int HIGHEST_CELL = 32767;
// As OrvMessageManager numbers them
constexpr int HIGHEST_JOYSTICK = 1;
constexpr int HIGHEST_BUTTON = 35;
constexpr std::string_view AXES[] = {"X", "Y", "Z", "U", "V", "R"};
constexpr int HIGHEST_POSITION = 65535;
constexpr int NONE = -1;

Command parseMidi(PerformanceLine& line)
{
    MidiCommand midi{};
    midi.input = line.number("INPUT", 0, HIGHEST_PORT);
    const std::uint8_t status = line.hexadecimalByte("the first byte");
    if (status < 0x80) line.refuse("the first byte is below 80");
    midi.status = status < 0xF0 ? status & 0xF0 : status;
    midi.channel = status < 0xF0 ? status & 0x0F : 0;
    if (!line.empty()) midi.d1 = line.hexadecimalByte("the second byte");
    if (!line.empty()) midi.d2 = line.hexadecimalByte("the third byte");
    return midi;
}

/// -1 means none, which is 0.
std::uint8_t dataByte(PerformanceLine& line, std::string_view name)
{
    return static_cast<std::uint8_t>(std::max(line.number(name, NONE, 255), 0));
}

Command parsePlay(PerformanceLine& line)
{
    PlayCommand play{};
    play.output = line.number("OUTPUT", NONE, HIGHEST_PORT);
    play.channel = line.number("CHANNEL", NONE, HIGHEST_CHANNEL);
    play.zone = line.number("ZONE", NONE, HIGHEST_ZONE);
    play.status = static_cast<std::uint8_t>(line.number("STATUS", 128, 255));
    play.d1 = dataByte(line, "D1");
    play.d2 = dataByte(line, "D2");
    return play;
}

/// True if the next word is `first`, false if it is `second`.
bool isFirstOf(PerformanceLine& line, std::string_view first, std::string_view second)
{
    const std::string either = "'" + std::string(first) + "' or '" + std::string(second) + "'";
    const std::string_view word = line.word(either);
    if (word != first && word != second) line.refuse(quoted(word) + " is not " + either);
    return word == first;
}

Command parseEnable(PerformanceLine& line)
{
    EnableCommand enable{};
    enable.direction = isFirstOf(line, "input", "output") ? PortDirection::input : PortDirection::output;
    enable.port = line.number("the port", 0, HIGHEST_PORT);
    enable.on = isFirstOf(line, "on", "off");
    return enable;
}

Command parseLoad(PerformanceLine& line)
{
    const std::string_view name = line.rest("the file");
    const auto path = line.file(name);
    try {
        checkSetupFile(path);
    } catch (const InputError& reason) {
        line.refuse(reason.what());
    }
    return LoadCommand{textOf(path)};
}

PressAction parsePressAction(PerformanceLine& line)
{
    constexpr std::pair<std::string_view, PressAction> ACTIONS[] = {
        {"down", PressAction::down}, {"repeat", PressAction::repeat}, {"up", PressAction::up}};
    const std::string_view word = line.word("'down', 'repeat' or 'up'");
    const auto* action = std::ranges::find(ACTIONS, word, &std::pair<std::string_view, PressAction>::first);
    if (action == std::end(ACTIONS)) line.refuse(quoted(word) + " is not 'down', 'repeat' or 'up'");
    return action->second;
}

Command parseKey(PerformanceLine& line)
{
    const PressAction action = parsePressAction(line);
    const std::string_view text = line.rest("KEY");
    const Key key = Key::fromXmlString(text);
    if (key.keyCode < 0) line.refuse("there is no key " + quoted(text));
    return KeyCommand{action, key};
}

Command parseFunction(PerformanceLine& line)
{
    const std::string_view xml = line.rest("XML");
    const auto text = Backend::FunctionManagement::FunctionText::check(xml);
    if (!text.problem.empty()) line.refuse("the function is no XML element: " + text.problem);
    if (!text.isFunction) line.refuse("there is no function " + quoted(std::string_view(text.typeName)));
    return FunctionCommand{std::string(xml)};
}

Command parseRecord(PerformanceLine& line)
{
    const auto stem = line.file(line.rest("the stem"));
    const auto folder = stem.parent_path();
    std::error_code none;
    if (!folder.empty() && !std::filesystem::is_directory(folder, none))
        line.refuse(Host::quoted(textOf(folder)) + " is no folder");
    return RecordCommand{stem.string()};
}

Command parseControl(PerformanceLine& line)
{
    const auto [row, column] = line.twoNumbers("ROW,COL", HIGHEST_CELL);
    using Limits = std::numeric_limits<std::int32_t>;
    return ControlCommand{row, column, line.number("VALUE", Limits::min(), Limits::max())};
}

Command parseAxis(PerformanceLine& line)
{
    AxisCommand command{};
    command.joystick = line.number("JOYSTICK", 0, HIGHEST_JOYSTICK);
    const std::string_view name = line.word("the axis");
    command.axis = static_cast<int>(std::ranges::find(AXES, name) - std::begin(AXES));
    if (command.axis == std::ssize(AXES)) line.refuse(quoted(name) + " is not an axis: X, Y, Z, U, V or R");
    command.value = line.number("VALUE", 0, HIGHEST_POSITION);
    return command;
}

Command parseButton(PerformanceLine& line)
{
    ButtonCommand command{};
    command.joystick = line.number("JOYSTICK", 0, HIGHEST_JOYSTICK);
    command.button = line.number("the button", 0, HIGHEST_BUTTON);
    command.action = parsePressAction(line);
    return command;
}

struct CommandRow {
    std::string_view word;
    Command (*parse)(PerformanceLine&);
};

constexpr CommandRow COMMANDS[] = {
    {"midi", parseMidi},         {"play", parsePlay},     {"enable", parseEnable}, {"key", parseKey},
    {"function", parseFunction}, {"axis", parseAxis},     {"button", parseButton}, {"control", parseControl},
    {"load", parseLoad},         {"record", parseRecord},
};
}  // namespace

std::optional<Command> parseCommand(std::string_view text, const std::string& where)
{
    PerformanceLine line(text, where);
    if (line.empty()) return std::nullopt;
    return parseCommand(line);
}

Command parseCommand(PerformanceLine& line)
{
    const std::string_view word = line.word("the command");
    const auto* row = std::ranges::find(COMMANDS, word, &CommandRow::word);
    if (row == std::end(COMMANDS)) line.refuse("unknown command " + quoted(word));
    const Command command = row->parse(line);
    line.end();
    return command;
}
}  // namespace Host
