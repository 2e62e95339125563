/* orbs/divide.h: quotients. */
#ifndef ORBS_DIVIDE_H
#define ORBS_DIVIDE_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

ORBS_DECLARATIONS_END

#endif
