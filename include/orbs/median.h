/* orbs/median.h: running medians. */
#ifndef ORBS_MEDIAN_H
#define ORBS_MEDIAN_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

ORBS_DECLARATIONS_END

#endif
