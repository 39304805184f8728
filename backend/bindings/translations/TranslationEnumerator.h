#pragma once

#include "backend/bindings/functions/FunctionInfo.h"
#include "platform/Export.h"

namespace Backend::MidiInput::TranslationManagement
{
using TranslationInfo = FunctionInfo;

/// Receives the translations that can be picked.
class TranslationEnumerator
{
public:
    virtual ~TranslationEnumerator() = default;
    virtual void addTranslation(const TranslationInfo& translation) = 0;
};

/// Adds every translation, in the order of the pickers.
ORV_API void enumerateTranslations(TranslationEnumerator& enumerator);
}  // namespace Backend::MidiInput::TranslationManagement
