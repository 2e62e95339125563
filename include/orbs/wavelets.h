/* orbs/wavelets.h: the Haar transform and two-channel filter banks. */
#ifndef ORBS_WAVELETS_H
#define ORBS_WAVELETS_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

ORBS_DECLARATIONS_END

#endif
