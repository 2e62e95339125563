/* Every second output of a fixed-point average, from an object. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32s taps[2] = {16384, 16384};
    const Orb16s x[6] = {10, 20, 30, 40, 50, 60};
    Orb16s y[3];
    OrbsFIRState32s_16s* filter;
    if (orbsFIRMRInitAlloc32s_16s(&filter, taps, 2, -15, 1, 0, 2, 1, NULL) != orbStsNoErr)
        return 1;
    orbsFIR32s_16s_Sfs(x, y, 3, filter, 0);
    for (int n = 0; n < 3; ++n) printf("%d%c", y[n], n < 2 ? ' ' : '\n');
    orbsFIRFree32s_16s(filter);
    return 0;
}

/*
15 35 55
*/
