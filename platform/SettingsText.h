#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// The text of a settings file (see SettingsStore). Lines keep their order; of two lines with one name the last one
/// counts. A line may end in CR LF; it is written with a line feed.
class SettingsText
{
public:
    SettingsText() = default;
    explicit SettingsText(std::string_view text);

    /// Bytes with a NUL are not a text.
    static bool isText(std::string_view bytes) { return bytes.find('\0') == std::string_view::npos; }

    std::string print() const;

    std::optional<std::string> getString(std::string_view name) const;
    std::optional<std::int32_t> getNumber(std::string_view name) const;
    std::optional<std::vector<std::uint8_t>> getBytes(std::string_view name) const;

    void setString(std::string_view name, std::string_view text);
    void setNumber(std::string_view name, std::int32_t number);
    void setBytes(std::string_view name, std::span<const std::uint8_t> bytes);

private:
    std::string* findLine(std::string_view name);
    std::optional<std::string_view> find(std::string_view name, std::string_view type) const;
    void set(std::string_view name, std::string_view type, const std::string& value);

    std::vector<std::string> lines;
};
