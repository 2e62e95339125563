/* orbs/random.h: uniform and Gaussian noise. */
#ifndef ORBS_RANDOM_H
#define ORBS_RANDOM_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

ORBS_DECLARATIONS_END

#endif
