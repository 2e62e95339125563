/* orbs/dct.h: discrete cosine transforms. */
#ifndef ORBS_DCT_H
#define ORBS_DCT_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

ORBS_DECLARATIONS_END

#endif
