#pragma once

#include <cstddef>
#include <iosfwd>
#include <memory>
#include <string_view>
#include <vector>

#include "backend/model/MidiEvent.h"
#include "backend/model/Translation.h"
#include "platform/Export.h"

namespace Backend::MidiInput
{
/// The translations of one kind of event, which run in their order. A copy holds clones.
class ORV_API MidiEventConfiguration
{
public:
    using Translations = std::vector<std::unique_ptr<TranslationManagement::Translation>>;

    explicit MidiEventConfiguration(const MidiEvent& ofEvent = {}) : event(ofEvent) {}
    MidiEventConfiguration(const MidiEventConfiguration& other);
    MidiEventConfiguration(MidiEventConfiguration&&) noexcept = default;
    MidiEventConfiguration& operator=(MidiEventConfiguration other) noexcept;
    ~MidiEventConfiguration() = default;

    /// A "MidiEvent" element. A translation of which `createTranslation` makes nothing is left out.
    static MidiEventConfiguration fromXml(const XmlElement& element,
                                          const TranslationManagement::TranslationFactory& createTranslation);
    /// The element, one tag a line after `indent` TABs.
    void writeXml(std::ostream& out, int indent) const;

    const MidiEvent& getEvent() const { return event; }
    const Translations& getTranslations() const { return translations; }
    /// After the others; null is none.
    void addTranslation(std::unique_ptr<TranslationManagement::Translation> translation);

    /// The type name, from 0. Where there is none an event without translations is UNCHANGED, and any further row
    /// DO_NOTHING.
    std::string_view getTranslationType(std::size_t index) const;

    /// Whether it leaves its event as it is.
    bool isEmpty() const;

    /// Gives every translation its backend.
    void setOrv(OrvIF& orv);

    /// Runs the translations whose condition holds, each on the same message.
    void execute(const MidiEngine::OrvMidiMessage& message) const;

    /// Appends what the translations can play in zones.
    void getNoteSpans(std::vector<FunctionManagement::FunctionNoteSpan>& result) const;

private:
    MidiEvent event;
    Translations translations;
};
}  // namespace Backend::MidiInput
