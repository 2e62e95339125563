/* A smoother of first order: y[n] = 0.5 x[n] + 0.5 y[n-1], over two blocks. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f taps[4] = {0.5f, 0, 1, -0.5f}, x[6] = {8, 8, 8, 8, 0, 0};
    Orb32f y[6];
    OrbsIIRState_32f* filter;
    if (orbsIIRInitAlloc_32f(&filter, taps, 1, NULL) != orbStsNoErr) return 1;
    orbsIIR_32f(x, y, 4, filter);
    orbsIIR_32f(x + 4, y + 4, 2, filter);
    for (int n = 0; n < 6; ++n) printf("%g%c", y[n], n < 5 ? ' ' : '\n');
    orbsIIRFree_32f(filter);
    return 0;
}

/*
4 6 7 7.5 3.75 1.875
*/
