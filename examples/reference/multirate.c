/* The rate halved behind a short average: two samples in, one out. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f taps[2] = {0.5f, 0.5f}, x[6] = {1, 2, 3, 4, 5, 6};
    Orb32f y[3];
    OrbsFIRState_32f* filter;
    if (orbsFIRMRInitAlloc_32f(&filter, taps, 2, 1, 0, 2, 1, NULL) != orbStsNoErr) return 1;
    orbsFIR_32f(x, y, 3, filter);
    for (int n = 0; n < 3; ++n) printf("%g%c", y[n], n < 2 ? ' ' : '\n');
    orbsFIRFree_32f(filter);
    return 0;
}

/*
1.5 3.5 5.5
*/
