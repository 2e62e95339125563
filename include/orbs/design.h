/* orbs/design.h: filter design. */
#ifndef ORBS_DESIGN_H
#define ORBS_DESIGN_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

ORBS_DECLARATIONS_END

#endif
