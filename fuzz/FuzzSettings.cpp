#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "platform/linux/SettingsText.h"

/// Any file is read, and what is written back reads the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    SettingsText settings(text);
    settings.getNumber("A");
    settings.getBytes("A");
    const auto value = settings.getString("A");
    settings.setString("B", text);
    if (value) settings.setString("A", *value);
    const SettingsText again(settings.print());
    if (again.print() != settings.print() || again.getString("B") != std::string(text)) std::abort();
    if (value && again.getString("A") != value) std::abort();
    return 0;
}
