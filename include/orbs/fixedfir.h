/* orbs/fixedfir.h: FIR filters with 16-bit taps. */
#ifndef ORBS_FIXEDFIR_H
#define ORBS_FIXEDFIR_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

ORBS_DECLARATIONS_END

#endif
