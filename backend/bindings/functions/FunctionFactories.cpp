// The factories and the list for pickers, which are made from FunctionList.h.

#include "backend/bindings/functions/FunctionFactories.h"
#include "backend/bindings/functions/FunctionEnumerator.h"
#include "backend/bindings/functions/Functions.h"

namespace Backend::FunctionManagement
{
namespace
{
template <class Type>
constexpr bool IS_MADE = !std::is_same_v<Type, Functions::NoFunction>;

/// Calls `make` with the class of that type name, if functions of it can be made.
template <class Make>
void withClass(std::string_view typeName, Make&& make)
{
    AllFunctions::forEach([&]<class Type>(std::type_identity<Type> type) {
        if (IS_MADE<Type> && Type::info.typeName == typeName) make(type);
    });
}
}  // namespace

std::unique_ptr<Function> createFunction(std::string_view typeName, OrvIF& orv)
{
    std::unique_ptr<Function> function;
    withClass(typeName, [&]<class Type>(std::type_identity<Type>) { function.reset(new Type(orv)); });
    return function;
}

std::unique_ptr<Function> createFunctionFromXml(const XmlElement& element, OrvIF& orv)
{
    std::unique_ptr<Function> function;
    withClass(element.getTagName(), [&]<class Type>(std::type_identity<Type>) {
        auto* const made = new Type(orv);
        function.reset(made);
        made->readParameters(element);
    });
    return function;
}

bool isFunctionType(std::string_view typeName)
{
    bool found = false;
    withClass(typeName, [&](auto) { found = true; });
    return found;
}

void enumerateFunctions(FunctionEnumerator& enumerator)
{
    AllFunctions::forEach([&]<class Type>(std::type_identity<Type>) {
        if constexpr (!std::is_same_v<Type, Functions::MidiEndOfSysEx>) enumerator.addFunction(Type::info);
    });
}
}  // namespace Backend::FunctionManagement
