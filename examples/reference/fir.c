/* A filter over a stream in two blocks: the object remembers what the second needs of the
 * first. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f taps[3] = {0.25f, 0.5f, 0.25f}, noisy[8] = {4, 0, 4, 0, 8, 0, 8, 0};
    Orb32f smooth[8];
    OrbsFIRState_32f* filter;
    if (orbsFIRInitAlloc_32f(&filter, taps, 3, NULL) != orbStsNoErr) return 1;
    orbsFIR_32f(noisy, smooth, 5, filter);
    orbsFIR_32f(noisy + 5, smooth + 5, 3, filter);
    for (int n = 0; n < 8; ++n) printf("%g%c", smooth[n], n < 7 ? ' ' : '\n');
    orbsFIRFree_32f(filter);
    return 0;
}

/*
1 2 2 2 3 4 4 4
*/
