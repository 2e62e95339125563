/* orbs/convolution.h: convolution. */
#ifndef ORBS_CONVOLUTION_H
#define ORBS_CONVOLUTION_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

ORBS_DECLARATIONS_END

#endif
