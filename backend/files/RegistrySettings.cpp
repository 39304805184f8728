#include "backend/files/RegistrySettings.h"
#include "api/SettingInfo.h"

#include <cstdint>
#include <optional>
#include <utility>

#include "platform/SettingsStore.h"

namespace Backend
{
namespace
{
// The size of the stored form, including its NUL.
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
SettingInfo::Kind kindOf(const Settings::Text&) { return SettingInfo::Kind::text; }
SettingInfo::Kind kindOf(const Settings::Switch&) { return SettingInfo::Kind::onOff; }
SettingInfo::Kind kindOf(const Settings::Number&) { return SettingInfo::Kind::number; }
SettingInfo::Kind kindOf(const Settings::Rectangle&) { return SettingInfo::Kind::rectangle; }
}  // namespace

template <class Visit>
void RegistrySettings::visitAll(Visit visit)
{
    Settings::All::forEach([&]<const auto & row>() { visit(row.name, static_cast<Stored<row>&>(values)); });
}

std::vector<SettingInfo> SettingInfo::getTable()
{
    std::vector<SettingInfo> table;
    Settings::All::forEach([&]<const auto & row>() { table.push_back({row.name, kindOf(row)}); });
    return table;
}

bool RegistrySettings::loadFromRegistry(const std::string& key)
{
    const SettingsStore store(key);
    if (!store.isOpen()) return false;
    visitAll([&](const char* name, auto& stored) {
        if (auto value = load(store, name, stored.value)) stored.value = std::move(*value);
    });
    enabledInputs = getBoolVectorFromString(get<Settings::ENABLED_MIDI_INPUTS>());
    enabledOutputs = getBoolVectorFromString(get<Settings::ENABLED_MIDI_OUTPUTS>());
    return true;
}

/// The stored values are read again first, because another program may have changed them.
bool RegistrySettings::saveToRegistry(const std::string& key)
{
    SettingsStore store(key);
    if (!store.isOpen()) return false;
    set<Settings::ENABLED_MIDI_INPUTS>(getStringFromBoolVector(enabledInputs));
    set<Settings::ENABLED_MIDI_OUTPUTS>(getStringFromBoolVector(enabledOutputs));
    visitAll([&](const char* name, const auto& stored) {
        if (stored.dirty) save(store, name, stored.value);
    });
    if (!store.save()) return false;
    visitAll([](const char*, auto& stored) { stored.dirty = false; });
    return true;
}

void RegistrySettings::setMidiInputEnabled(int port, bool enabled) { setBit(enabledInputs, port, enabled); }

void RegistrySettings::setMidiOutputEnabled(int port, bool enabled) { setBit(enabledOutputs, port, enabled); }

HostSettings RegistrySettings::getHostSettings() const
{
    const auto valid = [this]<const auto & row>()
    {
        const int value = get<row>();
        return row.allows(value) ? value : row.standard;
    };
    return {.volume = valid.operator()<Settings::SYNTHESIZER_VOLUME>(),
            .reverb = get<Settings::SYNTHESIZER_REVERB>(),
            .soundFont = get<Settings::SOUND_FONT>(),
            .client = get<Settings::CLIENT_NAME>(),
            .connectsSound = get<Settings::CONNECT_SOUND>(),
            .clockIn = valid.operator()<Settings::CLOCK_IN>(),
            .clockOut = valid.operator()<Settings::CLOCK_OUT>(),
            .followsTransport = get<Settings::FOLLOW_TRANSPORT>()};
}

HostSettings HostSettings::load(const std::string& key)
{
    RegistrySettings settings;
    settings.loadFromRegistry(key);
    return settings.getHostSettings();
}

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
