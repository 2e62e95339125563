/* orbs/polar.h: magnitudes, phases, power spectra, polar form and back. */
#ifndef ORBS_POLAR_H
#define ORBS_POLAR_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

ORBS_DECLARATIONS_END

#endif
