/* orbs/windows.h: window functions. */
#ifndef ORBS_WINDOWS_H
#define ORBS_WINDOWS_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

OrbStatus orbsWinBartlett_64f_I(Orb64f* pSrcDst, int len);
OrbStatus orbsWinHann_64f_I(Orb64f* pSrcDst, int len);
OrbStatus orbsWinHamming_64f_I(Orb64f* pSrcDst, int len);
OrbStatus orbsWinBlackmanOpt_64f_I(Orb64f* pSrcDst, int len);
ORBS_DECLARATIONS_END

#endif
