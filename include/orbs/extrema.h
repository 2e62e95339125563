/* orbs/extrema.h: least and greatest elements, orders, nearest entries. */
#ifndef ORBS_EXTREMA_H
#define ORBS_EXTREMA_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

ORBS_DECLARATIONS_END

#endif
