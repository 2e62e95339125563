/* orbs/filters.h: FIR filters. */
#ifndef ORBS_FILTERS_H
#define ORBS_FILTERS_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN


ORBS_DECLARATIONS_END

#endif
