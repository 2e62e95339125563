/* New taps while a stream goes on, and a look at the delay line, newest sample first. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f sum[3] = {1, 1, 1}, newest[3] = {1, 0, 0};
    Orb32f line[3];
    OrbsFIRState_32f* filter;
    if (orbsFIRInitAlloc_32f(&filter, sum, 3, NULL) != orbStsNoErr) return 1;
    for (int n = 1; n <= 4; ++n) {
        Orb32f y;
        orbsFIROne_32f((Orb32f)n, &y, filter);
        printf("%g ", y);
        if (n == 2) orbsFIRSetTaps_32f(newest, filter);
    }
    orbsFIRGetDlyLine_32f(filter, line);
    printf("| %g %g %g\n", line[0], line[1], line[2]);
    orbsFIRFree_32f(filter);
    return 0;
}

/*
1 3 3 4 | 4 3 2
*/
