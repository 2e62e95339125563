/* orbs/fixedfft.h: Fourier transforms of integers, of power-of-two length. */
#ifndef ORBS_FIXEDFFT_H
#define ORBS_FIXEDFFT_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

ORBS_DECLARATIONS_END

#endif
