/* orbs/norms.h: norms, dot products and normalisation. */
#ifndef ORBS_NORMS_H
#define ORBS_NORMS_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

ORBS_DECLARATIONS_END

#endif
