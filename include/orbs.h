/* orbs.h: every primitive of the orbs library. */
#ifndef ORBS_H
#define ORBS_H

#include "orbcore.h"
#include "orbdefs.h"
#include "orbs/arith.h"
#include "orbs/coding.h"
#include "orbs/convert.h"
#include "orbs/data.h"
#include "orbs/dct.h"
#include "orbs/dft.h"
#include "orbs/divide.h"
#include "orbs/elementary.h"
#include "orbs/extrema.h"
#include "orbs/fft.h"
#include "orbs/fir.h"
#include "orbs/fixedfft.h"
#include "orbs/foundation.h"
#include "orbs/generators.h"
#include "orbs/goertzel.h"
#include "orbs/hilbert.h"
#include "orbs/logic.h"
#include "orbs/median.h"
#include "orbs/norms.h"
#include "orbs/polar.h"
#include "orbs/random.h"
#include "orbs/sorting.h"
#include "orbs/spectra.h"
#include "orbs/sums.h"
#include "orbs/thresholds.h"
#include "orbs/wavelets.h"

#endif
