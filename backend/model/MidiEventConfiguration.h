#pragma once

#include <algorithm>
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
/// The entry of a kind of incoming event: translations, which are executed in their order. A copy has copies of them.
class ORV_API MidiEventConfiguration
{
public:
    using Translations = std::vector<std::unique_ptr<TranslationManagement::Translation>>;

    explicit MidiEventConfiguration(const MidiEvent& ofEvent = {}) : event(ofEvent) {}
    MidiEventConfiguration(const MidiEventConfiguration& other);
    MidiEventConfiguration(MidiEventConfiguration&&) noexcept = default;
    MidiEventConfiguration& operator=(MidiEventConfiguration other) noexcept;
    ~MidiEventConfiguration() = default;

    /// From a "MidiEvent" element. Translations for which `createTranslation` returns none are left out.
    static MidiEventConfiguration fromXml(const XmlElement& element,
                                          const TranslationManagement::TranslationFactory& createTranslation);
    /// Writes the element, one tag a line, indented by `indent` TABs.
    void writeXml(std::ostream& out, int indent) const;

    const MidiEvent& getEvent() const { return event; }
    const Translations& getTranslations() const { return translations; }
    /// To be changed; none of them may be null.
    Translations& getTranslations() { return translations; }
    /// Appends a translation; null is ignored.
    void addTranslation(std::unique_ptr<TranslationManagement::Translation> translation);

    /// The type name of a translation, by its index. Without one it is UNCHANGED in an entry without translations, else
    /// DO_NOTHING.
    std::string_view getTranslationType(std::size_t index) const;

    /// Whether the event is left as it is.
    bool isEmpty() const;

    /// Sets the backend of every translation.
    void setOrv(OrvIF& orv);

    /// Executes the translations whose condition is met, all with the same message.
    void execute(const MidiEngine::OrvMidiMessage& message) const;

    /// Whether an event makes an entry execute a function, which only the backend thread does.
    bool executesFunction(const MidiEngine::OrvMidiMessage& message) const
    {
        return std::ranges::any_of(translations, [&](const auto& translation) {
            return translation->getResult() == TranslationManagement::Translation::Result::function &&
                   translation->getCondition().isTrue(message);
        });
    }

    /// The other way to execute them, for an event that executes no function: calls `play(OrvMidiMessage&)` for each
    /// event that is played, and allocates nothing.
    template <class Play>
    void forEachResult(const MidiEngine::OrvMidiMessage& message, Play&& play) const
    {
        for (const auto& translation : translations) {
            if (translation->getResult() != TranslationManagement::Translation::Result::event ||
                !translation->getCondition().isTrue(message))
                continue;
            MidiEngine::OrvMidiMessage result = message;
            translation->applyTo(result);
            play(result);
        }
    }

    /// Appends the notes that the translations can play in zones.
    void getNoteSpans(std::vector<FunctionManagement::FunctionNoteSpan>& result) const;

private:
    MidiEvent event;
    Translations translations;
};
}  // namespace Backend::MidiInput
