#include "backend/files/RegistrySettings.h"

#include <cstdint>
#include <optional>
#include <type_traits>

#include "platform/SettingsStore.h"

namespace Backend
{
namespace
{
// What the stored form has room for, its NUL included.
constexpr std::size_t STRING_BUFFER = 1000;

std::optional<std::string> load(const SettingsStore& store, const char* name, const std::string&)
{
    auto text = store.getString(name);
    if (!text || text->size() >= STRING_BUFFER) return std::nullopt;
    return text->substr(0, text->find('\0'));
}

std::optional<bool> load(const SettingsStore& store, const char* name, bool)
{
    const auto number = store.getNumber(name);
    if (!number) return std::nullopt;
    return *number != 0;
}

std::optional<int> load(const SettingsStore& store, const char* name, int) { return store.getNumber(name); }

/// Left, top, right and bottom, each a signed 32-bit number, lowest byte first.
std::optional<WindowsLib::Rect> load(const SettingsStore& store, const char* name, const WindowsLib::Rect&)
{
    const auto bytes = store.getBytes(name);
    if (!bytes || bytes->size() != 16) return std::nullopt;
    const auto number = [&](std::size_t at) {
        std::uint32_t word = 0;
        for (std::size_t i = 4; i-- > 0;) word = word << 8 | (*bytes)[at + i];
        return static_cast<std::int32_t>(word);
    };
    return WindowsLib::Rect{number(0), number(4), number(8), number(12)};
}

void save(SettingsStore& store, const char* name, const std::string& text) { store.setString(name, text); }

void save(SettingsStore& store, const char* name, int number) { store.setNumber(name, number); }

void save(SettingsStore& store, const char* name, const WindowsLib::Rect& rect)
{
    std::vector<std::uint8_t> bytes;
    for (const std::int32_t number : {rect.left, rect.top, rect.right, rect.bottom})
        for (int shift = 0; shift < 32; shift += 8)
            bytes.push_back(static_cast<std::uint8_t>(static_cast<std::uint32_t>(number) >> shift));
    store.setBytes(name, bytes);
}

void setBit(std::vector<bool>& bits, int index, bool value)
{
    if (index < 0) return;
    const auto at = static_cast<std::size_t>(index);
    if (at >= bits.size()) bits.resize(at + 1);
    bits[at] = value;
}

template <class Value>
constexpr RegistrySettings::Kind kindOf()
{
    if constexpr (std::is_same_v<Value, std::string>) return RegistrySettings::Kind::text;
    if constexpr (std::is_same_v<Value, bool>) return RegistrySettings::Kind::onOff;
    if constexpr (std::is_same_v<Value, int>) return RegistrySettings::Kind::number;
    if constexpr (std::is_same_v<Value, WindowsLib::Rect>) return RegistrySettings::Kind::rectangle;
}
}  // namespace

template <class Self, class Visit>
void RegistrySettings::visitAll(Self& self, Visit visit)
{
    const auto all = [&](auto&... setting) { (visit(setting), ...); };
    all(self.progDir, self.defaultBank, self.globalKeyboard, self.midiThru, self.retroRecordEnabled,
        self.retroRecordBufferSize, self.midiBufferDir, self.largeDisplayFont, self.mouseSensitivity,
        self.dockToBottomEdge, self.displayMidiInputEvents, self.displayMidiOutputEvents, self.displayNumbers,
        self.displayHeight, self.lastWindowPosition, self.enabledMidiInputs, self.enabledMidiOutputs, self.alwaysOnTop,
        self.useSkinBorder, self.defaultMidiOutput, self.liteVelocity, self.liteChannel, self.liteStackNotes,
        self.clickZoneChannelTranspose, self.screenState);
}

std::vector<RegistrySettings::Info> RegistrySettings::getTable()
{
    std::vector<Info> table;
    const RegistrySettings defaults;
    visitAll(defaults, [&]<class Value>(const Setting<Value>& setting) {
        table.push_back({setting.name, kindOf<Value>()});
    });
    return table;
}

bool RegistrySettings::loadFromRegistry(const std::string& key)
{
    const SettingsStore store(key);
    if (!store.isOpen()) return false;
    visitAll(*this, [&](auto& setting) {
        if (auto value = load(store, setting.name, setting.value)) setting.value = std::move(*value);
    });
    enabledInputs = getBoolVectorFromString(enabledMidiInputs.value);
    enabledOutputs = getBoolVectorFromString(enabledMidiOutputs.value);
    return true;
}

/// The key is read again first: another program may have written other values meanwhile.
bool RegistrySettings::saveToRegistry(const std::string& key)
{
    SettingsStore store(key);
    if (!store.isOpen()) return false;
    enabledMidiInputs.set(getStringFromBoolVector(enabledInputs));
    enabledMidiOutputs.set(getStringFromBoolVector(enabledOutputs));
    visitAll(*this, [&](auto& setting) {
        if (setting.dirty) save(store, setting.name, setting.value);
    });
    if (!store.save()) return false;
    visitAll(*this, [](auto& setting) { setting.dirty = false; });
    return true;
}

void RegistrySettings::setMidiInputEnabled(int port, bool enabled) { setBit(enabledInputs, port, enabled); }

void RegistrySettings::setMidiOutputEnabled(int port, bool enabled) { setBit(enabledOutputs, port, enabled); }

std::vector<bool> RegistrySettings::getBoolVectorFromString(std::string_view text)
{
    std::vector<bool> bits;
    for (const char letter : text) bits.push_back(letter == 'Y' || letter == 'y');
    return bits;
}

std::string RegistrySettings::getStringFromBoolVector(const std::vector<bool>& bits)
{
    std::string text;
    for (const bool bit : bits) text += bit ? 'Y' : 'N';
    return text;
}
}  // namespace Backend
