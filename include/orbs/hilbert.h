/* orbs/hilbert.h: analytic signals. */
#ifndef ORBS_HILBERT_H
#define ORBS_HILBERT_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

ORBS_DECLARATIONS_END

#endif
