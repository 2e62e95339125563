/* orbs/data.h: moving and rearranging vectors. */
#ifndef ORBS_DATA_H
#define ORBS_DATA_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN


ORBS_DECLARATIONS_END

#endif
