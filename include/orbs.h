/* orbs.h: every primitive of the orbs library. */
#ifndef ORBS_H
#define ORBS_H

#include "orbcore.h"
#include "orbdefs.h"
#include "orbs/arith.h"
#include "orbs/coding.h"
#include "orbs/convert.h"
#include "orbs/data.h"
#include "orbs/divide.h"
#include "orbs/elementary.h"
#include "orbs/fft.h"
#include "orbs/fir.h"
#include "orbs/foundation.h"
#include "orbs/logic.h"
#include "orbs/spectra.h"

#endif
