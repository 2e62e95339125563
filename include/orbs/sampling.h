/* orbs/sampling.h: samples put between samples, and left out. */
#ifndef ORBS_SAMPLING_H
#define ORBS_SAMPLING_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

ORBS_DECLARATIONS_END

#endif
