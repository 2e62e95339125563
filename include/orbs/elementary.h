/* orbs/elementary.h: exponentials, logarithms, arctangents and cube roots. */
#ifndef ORBS_ELEMENTARY_H
#define ORBS_ELEMENTARY_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

ORBS_DECLARATIONS_END

#endif
