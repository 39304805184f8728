#include "platform/SettingsStore.h"

#include <windows.h>

#include <algorithm>
#include <map>
#include <variant>

#include "platform/DbgStream.h"
#include "platform/Folders.h"
#include "platform/SettingsFile.h"
#include "platform/windows/Wide.h"

namespace
{
using WindowsLib::DbgStream;
using Bytes = std::vector<std::uint8_t>;

/// The values of a key of the current user, as they were when it was opened, and those that were set since.
class RegistryKey
{
public:
    explicit RegistryKey(const std::string& key) : path(widen(key))
    {
        HKEY opened = nullptr;
        isThere = RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, KEY_QUERY_VALUE, &opened) == ERROR_SUCCESS;
        if (!isThere) return;
        for (DWORD index = 0; readValue(opened, index); ++index) {}
        RegCloseKey(opened);
    }

    bool isOpen() const { return isPossible(); }
    bool exists() const { return isThere; }

    template <class Value>
    std::optional<Value> get(std::string_view name) const
    {
        const auto found = values.find(widen(name));
        const Value* value = found != values.end() ? std::get_if<Value>(&found->second.value) : nullptr;
        return value != nullptr ? std::optional(*value) : std::nullopt;
    }

    template <class Value>
    void set(std::string_view name, Value value)
    {
        Entry& entry = values[widen(name)];
        entry.isSaved =
            entry.isSaved && std::holds_alternative<Value>(entry.value) && std::get<Value>(entry.value) == value;
        entry.value = std::move(value);
    }

    bool save()
    {
        HKEY opened = nullptr;
        LSTATUS result =
            RegCreateKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr, &opened, nullptr);
        if (result != ERROR_SUCCESS) {
            DbgStream() << narrow(path) << ": settings not saved: " << describe(static_cast<unsigned long>(result));
            return false;
        }
        isThere = true;
        bool isAll = true;
        for (auto& [name, entry] : values) {
            if (entry.isSaved) continue;
            entry.isSaved = writeValue(opened, name, entry.value);
            isAll &= entry.isSaved;
        }
        RegCloseKey(opened);
        return isAll;
    }

private:
    using Value = std::variant<std::string, std::int32_t, Bytes>;
    struct Entry {
        Value value;
        bool isSaved = false;
    };
    /// Names are compared as the registry compares them.
    struct Less {
        bool operator()(const std::wstring& one, const std::wstring& other) const
        {
            return CompareStringOrdinal(one.data(), static_cast<int>(one.size()), other.data(),
                                        static_cast<int>(other.size()), TRUE) == CSTR_LESS_THAN;
        }
    };

    bool isPossible() const
    {
        return path.starts_with(L"Software\\") && path.find(L"\\\\") == std::wstring::npos && !path.ends_with(L'\\');
    }

    bool readValue(HKEY opened, DWORD index)
    {
        constexpr DWORD LONGEST_NAME = 16384;  // of a registry value, with its end
        std::wstring name(LONGEST_NAME, L'\0');
        DWORD nameSize = LONGEST_NAME;
        DWORD type = 0;
        DWORD size = 0;
        if (RegEnumValueW(opened, index, name.data(), &nameSize, nullptr, &type, nullptr, &size) != ERROR_SUCCESS)
            return false;
        name.resize(nameSize);
        Bytes bytes(size);
        if (RegQueryValueExW(opened, name.c_str(), nullptr, &type, bytes.data(), &size) != ERROR_SUCCESS) return true;
        bytes.resize(size);
        if (type == REG_SZ) {
            std::wstring text(reinterpret_cast<const wchar_t*>(bytes.data()), bytes.size() / sizeof(wchar_t));
            values[name] = {narrow(std::wstring_view(text).substr(0, text.find(L'\0'))), true};
        } else if (type == REG_DWORD && bytes.size() == sizeof(std::int32_t)) {
            std::int32_t number = 0;
            std::copy(bytes.begin(), bytes.end(), reinterpret_cast<std::uint8_t*>(&number));
            values[name] = {number, true};
        } else if (type == REG_BINARY) {
            values[name] = {std::move(bytes), true};
        }
        return true;
    }

    static bool writeValue(HKEY opened, const std::wstring& name, const Value& value)
    {
        const auto write = [&](DWORD type, const void* data, std::size_t size) {
            return RegSetValueExW(opened, name.c_str(), 0, type, static_cast<const BYTE*>(data),
                                  static_cast<DWORD>(size)) == ERROR_SUCCESS;
        };
        if (const auto* text = std::get_if<std::string>(&value)) {
            const std::wstring wide = widen(*text);
            return write(REG_SZ, wide.c_str(), (wide.size() + 1) * sizeof(wchar_t));
        }
        if (const auto* number = std::get_if<std::int32_t>(&value)) return write(REG_DWORD, number, sizeof *number);
        const auto& bytes = std::get<Bytes>(value);
        return write(REG_BINARY, bytes.data(), bytes.size());
    }

    const std::wstring path;
    std::map<std::wstring, Entry, Less> values;
    bool isThere = false;
};
}  // namespace

struct SettingsStore::Values {
    explicit Values(const std::string& key)
    {
        if (Folders::areSettingsInFiles())
            store.emplace<SettingsFile>(key);
        else
            store.emplace<RegistryKey>(key);
    }

    SettingsFile* file() { return std::get_if<SettingsFile>(&store); }
    RegistryKey& key() { return std::get<RegistryKey>(store); }

    std::variant<std::monostate, SettingsFile, RegistryKey> store;
};

SettingsStore::SettingsStore(const std::string& key) : values(std::make_unique<Values>(key)) {}

SettingsStore::~SettingsStore() = default;

bool SettingsStore::isOpen() const { return values->file() ? values->file()->isOpen() : values->key().isOpen(); }

bool SettingsStore::exists() const { return values->file() ? values->file()->exists() : values->key().exists(); }

std::optional<std::string> SettingsStore::getString(std::string_view name) const
{
    SettingsFile* const file = values->file();
    return file ? file->getValues().getString(name) : values->key().get<std::string>(name);
}

std::optional<std::int32_t> SettingsStore::getNumber(std::string_view name) const
{
    SettingsFile* const file = values->file();
    return file ? file->getValues().getNumber(name) : values->key().get<std::int32_t>(name);
}

std::optional<std::vector<std::uint8_t>> SettingsStore::getBytes(std::string_view name) const
{
    SettingsFile* const file = values->file();
    return file ? file->getValues().getBytes(name) : values->key().get<Bytes>(name);
}

void SettingsStore::setString(std::string_view name, std::string_view text)
{
    SettingsFile* const file = values->file();
    file ? file->getValues().setString(name, text) : values->key().set(name, std::string(text));
}

void SettingsStore::setNumber(std::string_view name, std::int32_t number)
{
    SettingsFile* const file = values->file();
    file ? file->getValues().setNumber(name, number) : values->key().set(name, number);
}

void SettingsStore::setBytes(std::string_view name, std::span<const std::uint8_t> bytes)
{
    SettingsFile* const file = values->file();
    file ? file->getValues().setBytes(name, bytes) : values->key().set(name, Bytes(bytes.begin(), bytes.end()));
}

bool SettingsStore::save()
{
    SettingsFile* const file = values->file();
    return isOpen() && (file ? file->save() : values->key().save());
}
