/* orbs/correlation.h: auto- and cross-correlation. */
#ifndef ORBS_CORRELATION_H
#define ORBS_CORRELATION_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

ORBS_DECLARATIONS_END

#endif
