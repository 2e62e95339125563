/* orbs/foundation.h: aligned allocation and the version record. */
#ifndef ORBS_FOUNDATION_H
#define ORBS_FOUNDATION_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

/* ---- orbsMalloc, orbsFree ------------------------------------------------------------------------------------
 * orbsMalloc_<type>(len) gives room for len elements, aligned to 32 bytes, or null if len is below 1 or memory is
 * short. The byte count (len times the element size, and a little for the alignment) is computed in 32 bits and
 * wraps there: a caller who needs more than 2 GiB asks the system.
 * orbsFree takes what an orbsMalloc returned, or null, which does nothing.
 * Both are as thread-safe as malloc and free. */
Orb8u* orbsMalloc_8u(int len);
Orb8s* orbsMalloc_8s(int len);
Orb16u* orbsMalloc_16u(int len);
Orb16s* orbsMalloc_16s(int len);
Orb8sc* orbsMalloc_8sc(int len);
Orb32u* orbsMalloc_32u(int len);
Orb32s* orbsMalloc_32s(int len);
Orb32f* orbsMalloc_32f(int len);
Orb16sc* orbsMalloc_16sc(int len);
Orb64s* orbsMalloc_64s(int len);
Orb64f* orbsMalloc_64f(int len);
Orb32sc* orbsMalloc_32sc(int len);
Orb32fc* orbsMalloc_32fc(int len);
Orb64sc* orbsMalloc_64sc(int len);
Orb64fc* orbsMalloc_64fc(int len);
void orbsFree(void* ptr);

/* ---- Version -------------------------------------------------------------------------------------------------
 * The record of this library; constant, never freed. targetCpu is the tier code in the library's file name. */
const OrbLibraryVersion* orbsGetLibVersion(void);

ORBS_DECLARATIONS_END

#endif
