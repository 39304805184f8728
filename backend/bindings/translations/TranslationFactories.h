#pragma once

#include <memory>
#include <string_view>

#include "backend/model/Translation.h"

namespace Backend::MidiInput::TranslationManagement
{
/// A translation of that type name with default parameters and without a condition; null for an unknown name.
ORV_API std::unique_ptr<Translation> createTranslation(std::string_view typeName);

/// A translation from a "Translation" element: its condition, and the class named by its first child element. Null for
/// an unknown name; missing attributes have their defaults.
ORV_API std::unique_ptr<Translation> createTranslationFromXml(const XmlElement& element);
}  // namespace Backend::MidiInput::TranslationManagement
