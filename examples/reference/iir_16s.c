/* 16-bit samples through a filter that computes with floats, scaled on the way out. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f taps[4] = {0.5f, 0, 1, -0.5f};
    const Orb16s x[4] = {1000, 1000, 1000, 1000};
    Orb16s y[4];
    OrbsIIRState32f_16s* filter;
    if (orbsIIRInitAlloc32f_16s(&filter, taps, 1, NULL) != orbStsNoErr) return 1;
    orbsIIR32f_16s_Sfs(x, y, 4, filter, 1);
    for (int n = 0; n < 4; ++n) printf("%d%c", y[n], n < 3 ? ' ' : '\n');
    orbsIIRFree32f_16s(filter);
    return 0;
}

/*
250 375 438 469
*/
