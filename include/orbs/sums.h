/* orbs/sums.h: sums, means, deviations and sums of logarithms. */
#ifndef ORBS_SUMS_H
#define ORBS_SUMS_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

ORBS_DECLARATIONS_END

#endif
