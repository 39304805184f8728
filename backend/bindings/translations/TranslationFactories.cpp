// The factories and the list for pickers, which are made from TranslationList.h.

#include "backend/bindings/translations/TranslationFactories.h"
#include "backend/bindings/translations/TranslationEnumerator.h"
#include "backend/bindings/translations/Translations.h"

namespace Backend::MidiInput::TranslationManagement
{
namespace
{
/// Calls `make` with the class of that type name, if there is one.
template <class Make>
void withClass(std::string_view typeName, Make&& make)
{
    AllTranslations::forEach([&]<class Type>(std::type_identity<Type> type) {
        if (Type::info.typeName == typeName) make(type);
    });
}

XmlElement firstChild(const XmlElement& parent)
{
    XmlElement first;
    forEachElement(parent, [&](const XmlElement& child) {
        if (!first.hasElement()) first = child;
    });
    return first;
}
}  // namespace

std::unique_ptr<Translation> createTranslation(std::string_view typeName)
{
    std::unique_ptr<Translation> translation;
    withClass(typeName, [&]<class Type>(std::type_identity<Type>) { translation.reset(new Type); });
    return translation;
}

std::unique_ptr<Translation> createTranslationFromXml(const XmlElement& element)
{
    const XmlElement child = firstChild(element);
    std::unique_ptr<Translation> translation;
    withClass(child.getTagName(), [&]<class Type>(std::type_identity<Type>) {
        auto* const made = new Type;
        translation.reset(made);
        made->readParameters(child);
    });
    if (translation)
        translation->setCondition(MidiTranslationCondition::fromXmlString(element.getAttribute("condition")));
    return translation;
}

void enumerateTranslations(TranslationEnumerator& enumerator)
{
    AllTranslations::forEach([&]<class Type>(std::type_identity<Type>) { enumerator.addTranslation(Type::info); });
}
}  // namespace Backend::MidiInput::TranslationManagement
