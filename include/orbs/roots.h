/* orbs/roots.h: squares, roots and absolute values. */
#ifndef ORBS_ROOTS_H
#define ORBS_ROOTS_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

ORBS_DECLARATIONS_END

#endif
