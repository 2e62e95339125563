/* Taps of 0.5 and 0.25 in 15 fraction bits over 16-bit samples. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32s taps[2] = {16384, 8192};
    const Orb16s x[4] = {1000, 2000, -1000, 0};
    Orb16s y[4];
    OrbsFIRState32s_16s* filter;
    if (orbsFIRInitAlloc32s_16s(&filter, taps, 2, -15, NULL) != orbStsNoErr) return 1;
    orbsFIR32s_16s_Sfs(x, y, 4, filter, 0);
    for (int n = 0; n < 4; ++n) printf("%d%c", y[n], n < 3 ? ' ' : '\n');
    orbsFIRFree32s_16s(filter);
    return 0;
}

/*
500 1250 0 -250
*/
