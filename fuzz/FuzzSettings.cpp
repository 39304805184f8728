// Any file is read, and what is written back reads the same.
#include "fuzz/Fuzzing.h"
#include "platform/SettingsText.h"

void tryInput(std::string_view text)
{
    SettingsText settings(text);
    settings.getNumber("A");
    settings.getBytes("A");
    const auto value = settings.getString("A");
    settings.setString("B", text);
    if (value) settings.setString("A", *value);
    const SettingsText again(settings.print());
    require(again.print() == settings.print() && again.getString("B") == text);
    require(!value || again.getString("A") == value);
}
