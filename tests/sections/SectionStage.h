#pragma once

#include "backend/sections/zones/ZoneManager.h"
#include "tests/stage/Stage.h"

/// The backend at rest, with one of its sections, which may be called from here.
template <class Manager>
struct SectionStage : Stage {
    explicit SectionStage(Manager& (Backend::OrvIF::*get)()) : section((orv.get()->*get)()) {}

    void load(const std::string& content, const std::string& attributes = "")
    {
        const std::string tag = section.getTag();
        loadElement("<" + tag + " " + attributes + ">" + content + "</" + tag + ">");
    }
    void loadElement(const std::string& element)
    {
        rest();  // this thread stands in for the backend's
        section.loadSection(rootOf(element));
        rest();
    }
    /// The section as a program holds it, flat.
    std::string written() const
    {
        return flat(writtenBy([&](std::ostream& out) { section.writeInProgram(out, 0); }));
    }
    /// The element of some of its items, flat.
    template <class Id>
    std::string writtenOf(const std::vector<Id>& ids) const
    {
        return flat(writtenBy([&](std::ostream& out) { section.writeXml(out, 0, ids); }));
    }
    /// The zones with the notes that are played in them: "0 C4-G4, 2 C3-C3".
    std::string zones() const
    {
        std::string text;
        const auto iterator = orv->getZoneManager().getZones().createIterator();
        while (const auto* zone = iterator->next())
            text += (text.empty() ? "" : ", ") + std::to_string(zone->id) + " " + zone->lowNote.toXmlString() + "-" +
                    zone->highNote.toXmlString();
        return text;
    }

    Manager& section;
};

/// What a key or a button does that plays a note as long as it is held, on channel 0 of the first output.
inline std::string playsNote(const std::string& note, const std::string& more)
{
    const std::string attributes = " output='0' channel='0' note='" + note + "'" + more + "/>";
    return "<Function><Down><MidiNoteOn" + attributes + "</Down><Up><MidiNoteOff" + attributes + "</Up></Function>";
}
