#pragma once
// Result and type codes of the host's C-style functions.

#include "adsdef.h"
