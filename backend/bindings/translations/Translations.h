#pragma once

// Includes every translation class.

#include "backend/bindings/translations/FunctionTranslations.h"
#include "backend/bindings/translations/MidiTranslations.h"
