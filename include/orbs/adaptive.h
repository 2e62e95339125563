/* orbs/adaptive.h: adaptive FIR filters. */
#ifndef ORBS_ADAPTIVE_H
#define ORBS_ADAPTIVE_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

ORBS_DECLARATIONS_END

#endif
