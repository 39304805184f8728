#pragma once

#include <sstream>

#include "backend/sections/computerinput/ComputerInputManager.h"
#include "backend/sections/zones/ZoneManager.h"
#include "backend/xml/XmlDocument.h"
#include "tests/stage/Stage.h"

/// A key that plays a note as long as it is held, on channel 0 of the first output.
inline std::string noteKey(const std::string& id, const std::string& note, const std::string& more = "")
{
    const auto play = [&](const std::string& type) {
        return "<" + type + " output='0' channel='0' note='" + note + "'" + more + "/>";
    };
    return "<Key id='" + id + "'><Function><Down>" + play("MidiNoteOn") + "</Down><Up>" + play("MidiNoteOff") +
           "</Up></Function></Key>";
}

/// The backend at rest, with a keyboard. Its manager may be called from here.
struct KeyStage : Stage {
    Backend::ComputerInput::ComputerInputManager& keys() { return orv->getComputerInputManager(); }

    void load(const std::string& content, const std::string& attributes = "")
    {
        const std::string section = "<ComputerInput " + attributes + ">" + content + "</ComputerInput>";
        keys().loadSection(XmlDocument(section, XmlDocument::Source::text).getRoot());
        rest();
    }
    void writePreset(const std::string& name, const std::string& text)
    {
        std::filesystem::create_directories(keys().getPresets().getFolder());
        std::ofstream(keys().getPresets().getPresetPath(name)) << text;
    }

    void down(const std::string& key) { say(key, true, false); }
    void repeat(const std::string& key) { say(key, true, true); }
    void up(const std::string& key) { say(key, false, false); }

    std::string written(std::vector<std::string> listed = {}, bool forceInline = false)
    {
        std::vector<Key> ids;
        for (const std::string& id : listed) ids.push_back(Key::fromXmlString(id));
        std::ostringstream out;
        keys().writeSection(out, 0, ids, forceInline);
        return out.str();
    }
    /// The keys there are, in their order.
    std::string names()
    {
        std::string text;
        const auto iterator = keys().getKeys().createIterator();
        while (const auto* key = iterator->next()) text += (text.empty() ? "" : ", ") + key->key.toXmlString();
        return text;
    }

private:
    void say(const std::string& text, bool isDown, bool isRepeat)
    {
        const Key key = Key::fromXmlString(text);
        if (isDown)
            commands().postKeyDown(key, isRepeat);
        else
            commands().postKeyUp(key);
        rest();
    }
};
