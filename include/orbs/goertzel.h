/* orbs/goertzel.h: spectra at single frequencies. */
#ifndef ORBS_GOERTZEL_H
#define ORBS_GOERTZEL_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

ORBS_DECLARATIONS_END

#endif
