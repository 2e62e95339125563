/* An adaptive filter of integers: sample in, output, error back. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    Orb32s y;
    OrbsFIRLMSMRState32s_16s* filter;
    if (orbsFIRLMSMRInitAlloc32s_16s(&filter, NULL, 1, NULL, 0, 1, 0, 1024) != orbStsNoErr)
        return 1;
    for (int n = 0; n < 4; ++n) {
        orbsFIRLMSMROneVal32s_16s(1000, &y, filter);
        orbsFIRLMSMRUpdateTaps32s_16s(500000 - y, filter);
        printf("%d ", y);
    }
    orbsFIRLMSMRFree32s_16s(filter);
    return 0;
}

/*
0 238000 363000 428000
*/
