/* Two second-order sections as one filter, its answer to a pulse, and its delay line. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb64f sections[12] = {1, 0, 0, 1, -0.5, 0, 1, 1, 0, 1, 0, 0};
    Orb64f line[4] = {0};
    OrbsIIRState_64f* filter;
    if (orbsIIRInitAlloc_BiQuad_64f(&filter, sections, 2, NULL) != orbStsNoErr) return 1;
    for (int n = 0; n < 4; ++n) {
        Orb64f y;
        orbsIIROne_64f(n == 0, &y, filter);
        printf("%g ", y);
    }
    orbsIIRGetDlyLine_64f(filter, line);
    printf("| %g %g %g %g\n", line[0], line[1], line[2], line[3]);
    orbsIIRFree_64f(filter);
    return 0;
}

/*
1 1.5 0.75 0.375 | 0.0625 0 0.125 0
*/
