/* orbs/dft.h: Fourier transforms of any length. */
#ifndef ORBS_DFT_H
#define ORBS_DFT_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

ORBS_DECLARATIONS_END

#endif
