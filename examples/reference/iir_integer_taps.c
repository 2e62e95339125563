/* Taps of integers with 14 fraction bits. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32s taps[4] = {8192, 0, 16384, -8192};
    const Orb16s x[4] = {1000, 1000, 1000, 1000};
    Orb16s y[4];
    OrbsIIRState32s_16s* filter;
    if (orbsIIRInitAlloc32s_16s(&filter, taps, 1, 14, NULL) != orbStsNoErr) return 1;
    orbsIIR32s_16s_Sfs(x, y, 4, filter, 0);
    for (int n = 0; n < 4; ++n) printf("%d%c", y[n], n < 3 ? ' ' : '\n');
    orbsIIRFree32s_16s(filter);
    return 0;
}

/*
500 750 875 938
*/
