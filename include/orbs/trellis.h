/* orbs/trellis.h: what a Viterbi decoder is made of. */
#ifndef ORBS_TRELLIS_H
#define ORBS_TRELLIS_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

ORBS_DECLARATIONS_END

#endif
