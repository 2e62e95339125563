/* orbs/multirate.h: FIR filters that change the sampling rate. */
#ifndef ORBS_MULTIRATE_H
#define ORBS_MULTIRATE_H

#include "../orbdefs.h"
#include "fir.h"

ORBS_DECLARATIONS_BEGIN

ORBS_DECLARATIONS_END

#endif
