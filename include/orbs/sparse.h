/* orbs/sparse.h: filters with few taps. */
#ifndef ORBS_SPARSE_H
#define ORBS_SPARSE_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

ORBS_DECLARATIONS_END

#endif
