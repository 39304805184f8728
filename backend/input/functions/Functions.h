#pragma once

// Every function class.

#include "backend/input/functions/ControlFunctions.h"
#include "backend/input/functions/LayerFunctions.h"
#include "backend/input/functions/MidiFunctions.h"
#include "backend/input/functions/OscFunctions.h"
#include "backend/input/functions/PresetFunctions.h"
#include "backend/input/functions/ScreenFunctions.h"
#include "backend/input/functions/SystemFunctions.h"
