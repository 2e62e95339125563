/* orbcore.h: the core library, liborbcore: thread count, status texts, control registers, constants.
 *
 * Everything here may be called from any thread. The control-register routines act on the calling thread only. */
#ifndef ORBCORE_H
#define ORBCORE_H

#include "orbdefs.h"

ORBS_DECLARATIONS_BEGIN

/* ---- Thread count --------------------------------------------------------------------------------------------
 * How many threads a long call may use. It starts at the maximum of the OpenMP runtime (so OMP_NUM_THREADS is
 * heeded) and is read at every call; filter states keep room for the count they were built under. Results do not
 * depend on it: each thread computes under the SSE control register of the caller (rounding, flush-to-zero,
 * denormals-are-zero, masks), and the exception flags that it raises are raised for the caller.
 *
 * orbSetNumThreads: numThreads below 1 gives orbStsSizeErr and changes nothing. */
OrbStatus orbSetNumThreads(int numThreads);
int orbGetNumThreads(void);

/* ---- Status texts --------------------------------------------------------------------------------------------
 * A short English sentence for a status; never null. Numbers that are no status get "unknown status". */
const char* orbGetStatusString(OrbStatus status);

/* ---- For the libraries that stand on this one ----------------------------------------------------------------
 * The count behind orbSetNumThreads. */
extern Orb32s threads_omp_of_n_orb;

/* Quiet NaN and positive infinity of each width. */
extern const Orb32f orbConstantOfNAN_32f;
extern const Orb64f orbConstantOfNAN_64f;
extern const Orb32f orbConstantOfINF_32f;
extern const Orb64f orbConstantOfINF_64f;

/* SSE control register (MXCSR). orb_set_rc_ssx replaces the rounding bits (mask 0x6000; 0 nearest, 0x6000 toward
 * zero) and returns the whole earlier register; orb_set_cw_ssx writes the whole register. */
Orb32u orb_set_rc_ssx(Orb32u rc);
void orb_set_cw_ssx(Orb32u word);

/* x87 control word. orb_set_rcpc_fpu replaces the bits of `mask` by those of `bits` (rounding control 0x0c00, precision
 * control 0x0300; 0x0c00 rounds toward zero) and returns the earlier word; orb_set_cw_fpu writes the whole word. */
Orb32u orb_set_rcpc_fpu(Orb32u bits, Orb32u mask);
void orb_set_cw_fpu(Orb32u word);

ORBS_DECLARATIONS_END

#endif
