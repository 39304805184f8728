#include "gui/keyboard/GlobalKeyboard.h"

#include <map>

#include "backend/bindings/functions/FunctionSettingsTypes.h"
#include "backend/model/KeyConfigurationMap.h"
#include "keyboardhook/KeyTable.h"
#include "platform/Module.h"

namespace Gui
{
using Backend::ButtonFunction;
using Backend::ComputerInput::KeyConfiguration;
using Backend::ComputerInput::KeyConfigurationMap;
using Backend::FunctionManagement::OnOffToggleSettingsType;

namespace
{
bool switchesGlobalKeyboard(const ButtonFunction& entry)
{
    if (entry.downFunction == nullptr || entry.downFunction->getType() != "ChangeGlobalKeyboard") return false;
    const auto* const settings = dynamic_cast<const OnOffToggleSettingsType*>(entry.downFunction.get());
    const bool alone =
        entry.upFunction == nullptr || entry.upFunction->getType() == Backend::FunctionManagement::NO_FUNCTION;
    return alone && settings != nullptr && settings->getOnOffToggle().state == OnOffToggle::State::toggle;
}

/// Whether that is the only function of the key. Such a key is never played, so any other function would be lost.
bool onlySwitches(const KeyConfiguration& configuration)
{
    const auto& entries = configuration.getEntries();
    return configuration.global && entries.size() == 1 && switchesGlobalKeyboard(entries.front());
}

template <class Visit>
void forEach(const KeyConfigurationMap& keys, Visit&& visit)
{
    const auto iterator = keys.createIterator();
    while (const KeyConfiguration* configuration = iterator->next()) visit(*configuration);
}
}  // namespace

GlobalKeyboard::GlobalKeyboard() : proxy(getModuleFolder()) {}

void GlobalKeyboard::open(const WindowHandle& receiver, bool on)
{
    window = receiver;
    setOn(on);
}

void GlobalKeyboard::close()
{
    if (!window) return;
    if (proxy.setEnabled != nullptr) proxy.setEnabled(0);
    if (proxy.clearControlKeys != nullptr) proxy.clearControlKeys();
    if (proxy.setWindowHandle != nullptr) proxy.setWindowHandle(nullptr);
    window = {};
    controlKeys.clear();
}

void GlobalKeyboard::setOn(bool on)
{
    if (!window) return;
    if (proxy.setWindowHandle != nullptr) proxy.setWindowHandle(&window);
    const char* const reason = proxy.setEnabled != nullptr ? proxy.setEnabled(on ? 1 : 0) : nullptr;
    problem = reason != nullptr ? reason : "";
}

void GlobalKeyboard::setKeys(const KeyConfigurationMap& keys)
{
    if (!window) return;
    if (auto now = findExcluded(keys); now != excluded && proxy.clearExclude != nullptr) {
        excluded = std::move(now);
        proxy.clearExclude();
        if (proxy.setExcludeKey != nullptr)
            for (const auto code : excluded) proxy.setExcludeKey(code);
    }
    if (auto now = findControlKeys(keys); now != controlKeys && proxy.clearControlKeys != nullptr) {
        controlKeys = std::move(now);
        proxy.clearControlKeys();
        if (proxy.addControlKey != nullptr)
            for (const auto code : controlKeys) proxy.addControlKey(code);
    }
}

/// Every key but those that are bound to a function, with any modifiers.
GlobalKeyboard::Codes GlobalKeyboard::findExcluded(const KeyConfigurationMap& keys)
{
    Codes codes;
    for (const auto& place : KeyTable::getPlaces()) codes.insert(place.virtualKey);
    forEach(keys, [&codes](const KeyConfiguration& configuration) {
        if (configuration.global && !configuration.isEmpty()) codes.erase(configuration.key.keyCode);
    });
    return codes;
}

/// The library ignores modifiers, so a key with another function under one of them is excluded.
GlobalKeyboard::Codes GlobalKeyboard::findControlKeys(const KeyConfigurationMap& keys)
{
    std::map<std::int32_t, bool> candidates;
    forEach(keys, [&candidates](const KeyConfiguration& configuration) {
        if (configuration.isEmpty()) return;
        const Key& key = configuration.key;
        const bool isPlain = key == Key{.keyCode = key.keyCode};
        const auto [candidate, isNew] = candidates.try_emplace(key.keyCode, true);
        candidate->second = isNew && isPlain && onlySwitches(configuration);
    });
    Codes codes;
    for (const auto& [code, only] : candidates)
        if (only) codes.insert(code);
    return codes;
}

std::string GlobalKeyboard::describe(const std::string& reason)
{
    const std::string help = "Global keyboard: the keys play while another program has the focus.";
    return reason.empty() ? help : help + "\n" + reason;
}

std::string GlobalKeyboard::getReason() const { return proxy.getReason().empty() ? problem : proxy.getReason(); }
}  // namespace Gui
