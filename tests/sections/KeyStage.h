#pragma once

#include "backend/sections/computerinput/ComputerInputManager.h"
#include "tests/sections/SectionStage.h"

inline std::string noteKey(const std::string& id, const std::string& note, const std::string& more = "")
{
    return "<Key id='" + id + "'>" + playsNote(note, more) + "</Key>";
}

struct KeyStage : SectionStage<Backend::ComputerInput::ComputerInputManager> {
    KeyStage() : SectionStage(&Backend::OrvIF::getComputerInputManager) {}

    Backend::ComputerInput::ComputerInputManager& keys() { return section; }

    void writePreset(const std::string& name, const std::string& text)
    {
        std::filesystem::create_directories(keys().getPresets().getFolder());
        std::ofstream(keys().getPresets().getPresetPath(name)) << text;
    }

    void down(const std::string& key)
    {
        commands().postKeyDown(Key::fromXmlString(key), false);
        rest();
    }
    void up(const std::string& key)
    {
        commands().postKeyUp(Key::fromXmlString(key));
        rest();
    }

    /// The keys there are, in their order.
    std::string names()
    {
        std::string text;
        const auto iterator = keys().getKeys().createIterator();
        while (const auto* key = iterator->next()) text += (text.empty() ? "" : ", ") + key->key.toXmlString();
        return text;
    }
};
