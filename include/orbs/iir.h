/* orbs/iir.h: IIR filters. */
#ifndef ORBS_IIR_H
#define ORBS_IIR_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

ORBS_DECLARATIONS_END

#endif
