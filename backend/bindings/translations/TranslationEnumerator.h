#pragma once

#include "backend/bindings/functions/FunctionInfo.h"
#include "platform/Export.h"

namespace Backend::MidiInput::TranslationManagement
{
using TranslationInfo = FunctionInfo;

/// Takes what there is to pick from.
class TranslationEnumerator
{
public:
    virtual ~TranslationEnumerator() = default;
    virtual void addTranslation(const TranslationInfo& translation) = 0;
};

/// Adds every translation, in the order in which pickers show them.
ORV_API void enumerateTranslations(TranslationEnumerator& enumerator);
}  // namespace Backend::MidiInput::TranslationManagement
