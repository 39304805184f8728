#pragma once

// Every translation class.

#include "backend/input/midi/translations/FunctionTranslations.h"
#include "backend/input/midi/translations/MidiTranslations.h"
