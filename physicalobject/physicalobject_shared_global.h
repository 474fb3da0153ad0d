#pragma once
// The export mark lives with the bases, below this layer; a host includes it from here.
#include "bases/Export.h"
