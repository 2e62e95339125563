/* orbs/speech.h: running updates and speech. */
#ifndef ORBS_SPEECH_H
#define ORBS_SPEECH_H

#include "../orbdefs.h"

ORBS_DECLARATIONS_BEGIN

ORBS_DECLARATIONS_END

#endif
