/* orbs/generators.h: ramps, slopes, chirps, tones and triangles. */
#ifndef ORBS_GENERATORS_H
#define ORBS_GENERATORS_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

ORBS_DECLARATIONS_END

#endif
