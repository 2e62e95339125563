/* orbs/thresholds.h: limits on elements. */
#ifndef ORBS_THRESHOLDS_H
#define ORBS_THRESHOLDS_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

ORBS_DECLARATIONS_END

#endif
