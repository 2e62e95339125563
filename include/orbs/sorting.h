/* orbs/sorting.h: sorts, with and without indices. */
#ifndef ORBS_SORTING_H
#define ORBS_SORTING_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

ORBS_DECLARATIONS_END

#endif
