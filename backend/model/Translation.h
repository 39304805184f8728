#pragma once

#include <functional>
#include <memory>
#include <ostream>
#include <string_view>

#include "backend/model/FunctionNoteSpan.h"
#include "backend/values/MidiTranslationCondition.h"
#include "backend/values/OrvMidiMessage.h"
#include "platform/Export.h"

class XmlElement;

namespace Backend
{
class OrvIF;
}

namespace Backend::MidiInput
{
struct MidiEvent;
}

namespace Backend::MidiInput::TranslationManagement
{
class TranslationVisitor;

/// The type names shown for an event without translations, and for a further row that is not set.
inline constexpr std::string_view UNCHANGED = "Unchanged";
inline constexpr std::string_view DO_NOTHING = "DoNothing";

/// What happens with an incoming event: another event is played, or a function is executed, with numbers from the
/// event's data bytes. It has one owner; copies are made with `clone`. Without a backend it does nothing.
class ORV_API Translation
{
public:
    virtual ~Translation() = default;

    virtual std::unique_ptr<Translation> clone() const = 0;

    /// The name of the translation's element in files, its type name.
    virtual std::string_view getType() const = 0;

    /// Writes the translation's element as a line, indented by `indent` TABs.
    virtual void writeXml(std::ostream& out, int indent) const = 0;
    virtual void accept(TranslationVisitor& visitor) = 0;

    /// Whether every event is played as if there were no translation.
    virtual bool isPassThrough() const { return false; }

    /// Translates an event; the caller checks the condition. The backend thread.
    virtual void execute(const MidiEngine::OrvMidiMessage& message) = 0;

    /// What is made of an event. Only a function needs the backend thread.
    enum class Result { function, event, nothing };
    virtual Result getResult() const { return Result::function; }

    /// Changes an event into the one that is played in its place; for `Result::event`. Any thread, real-time.
    virtual void applyTo(MidiEngine::OrvMidiMessage& /*event*/) const {}

    /// Sets the backend, which must outlive the translation.
    virtual void setOrv(OrvIF& backend) { orvIF = &backend; }

    /// The notes that it can play for `event`, and their zone; none for most translations.
    virtual FunctionManagement::FunctionNoteSpan getNoteSpan(const MidiEvent& /*event*/) const { return {}; }

    /// The number of its help text, see HelpTexts.h.
    virtual int getHelpId() const = 0;

    const MidiTranslationCondition& getCondition() const { return condition; }
    void setCondition(const MidiTranslationCondition& newCondition) { condition = newCondition; }

protected:
    Translation() = default;
    Translation(const Translation&) = default;
    Translation& operator=(const Translation&) = default;

    OrvIF* getOrv() const { return orvIF; }

private:
    MidiTranslationCondition condition{};
    OrvIF* orvIF = nullptr;
};

/// Makes a translation from its "Translation" element; null for an unknown element.
using TranslationFactory = std::function<std::unique_ptr<Translation>(const XmlElement& element)>;
}  // namespace Backend::MidiInput::TranslationManagement
