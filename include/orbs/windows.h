/* orbs/windows.h: window functions. */
#ifndef ORBS_WINDOWS_H
#define ORBS_WINDOWS_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

ORBS_DECLARATIONS_END

#endif
