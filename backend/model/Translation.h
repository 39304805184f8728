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

/// What an event without translations shows as, and what a further row shows as that is not set yet.
inline constexpr std::string_view UNCHANGED = "Unchanged";
inline constexpr std::string_view DO_NOTHING = "DoNothing";

/// What is made of one incoming event: another event, or one of the functions, with what it needs taken from the
/// event's data bytes. It has exactly one owner; copies are clones. Without a backend it does nothing.
class ORV_API Translation
{
public:
    virtual ~Translation() = default;

    virtual std::unique_ptr<Translation> clone() const = 0;

    /// The name of the translation's element in files.
    virtual std::string_view getType() const = 0;

    /// Writes the translation's element, a line of its own, after `indent` TABs.
    virtual void writeXml(std::ostream& out, int indent) const = 0;
    virtual void accept(TranslationVisitor& visitor) = 0;

    /// Whether it leaves every event as it would be without it.
    virtual bool isPassThrough() const { return false; }

    /// Translates one event; the condition is the caller's to ask. The backend thread.
    virtual void execute(const MidiEngine::OrvMidiMessage& message) = 0;

    /// Gives the translation its backend, which must outlive it.
    virtual void setOrv(OrvIF& backend) { orvIF = &backend; }

    /// Which notes of which zone it can play when `event` comes in; none for most.
    virtual FunctionManagement::FunctionNoteSpan getNoteSpan(const MidiEvent& /*event*/) const { return {}; }

    /// The number of the sentence that explains it, see HelpTexts.h.
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

/// Makes a translation from its "Translation" element; null for an element that is none.
using TranslationFactory = std::function<std::unique_ptr<Translation>(const XmlElement& element)>;
}  // namespace Backend::MidiInput::TranslationManagement
