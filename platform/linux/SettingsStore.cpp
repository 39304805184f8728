#include "platform/SettingsStore.h"

#include "platform/SettingsFile.h"

struct SettingsStore::Values : SettingsFile {
    using SettingsFile::SettingsFile;
};

SettingsStore::SettingsStore(const std::string& key) : values(std::make_unique<Values>(key)) {}

SettingsStore::~SettingsStore() = default;

bool SettingsStore::isOpen() const { return values->isOpen(); }

bool SettingsStore::exists() const { return values->exists(); }

std::optional<std::string> SettingsStore::getString(std::string_view name) const
{
    return values->getValues().getString(name);
}

std::optional<std::int32_t> SettingsStore::getNumber(std::string_view name) const
{
    return values->getValues().getNumber(name);
}

std::optional<std::vector<std::uint8_t>> SettingsStore::getBytes(std::string_view name) const
{
    return values->getValues().getBytes(name);
}

void SettingsStore::setString(std::string_view name, std::string_view text)
{
    values->getValues().setString(name, text);
}

void SettingsStore::setNumber(std::string_view name, std::int32_t number)
{
    values->getValues().setNumber(name, number);
}

void SettingsStore::setBytes(std::string_view name, std::span<const std::uint8_t> bytes)
{
    values->getValues().setBytes(name, bytes);
}

bool SettingsStore::save() { return values->save(); }
