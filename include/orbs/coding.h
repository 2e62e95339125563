/* orbs/coding.h: companding, byte order and bit packing. */
#ifndef ORBS_CODING_H
#define ORBS_CODING_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

ORBS_DECLARATIONS_END

#endif
