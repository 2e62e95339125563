/* A filter bank with the taps of the Haar wavelet, and the way back. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f low[2] = {0.5f, 0.5f}, high[2] = {0.5f, -0.5f}, lowBack[2] = {1, 1},
                 highBack[2] = {-1, 1};
    const Orb32f x[6] = {1, 3, 5, 5, 8, 2};
    Orb32f average[3], detail[3], back[6];
    OrbsWTFwdState_32f* split;
    OrbsWTInvState_32f* join;
    if (orbsWTFwdInitAlloc_32f(&split, low, 2, -1, high, 2, -1) != orbStsNoErr) return 1;
    if (orbsWTInvInitAlloc_32f(&join, lowBack, 2, 0, highBack, 2, 0) != orbStsNoErr)
        return 1;
    orbsWTFwd_32f(x, average, detail, 3, split);
    orbsWTInv_32f(average, detail, 3, back, join);
    for (int n = 0; n < 3; ++n)
        printf("%g %g: %g %g\n", average[n], detail[n], back[2 * n], back[2 * n + 1]);
    orbsWTFwdFree_32f(split);
    orbsWTInvFree_32f(join);
    return 0;
}

/*
2 1: 1 3
5 0: 5 5
5 -3: 8 2
*/
