/* orbs/logic.h: bitwise operations and shifts. */
#ifndef ORBS_LOGIC_H
#define ORBS_LOGIC_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

ORBS_DECLARATIONS_END

#endif
