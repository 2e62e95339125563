/* An adaptive filter starts from taps that are already good, and tells its line. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f taps[2] = {0.5f, 0.5f}, x[3] = {1, 2, 3},
                 reference[3] = {0.5f, 1.5f, 2.5f};
    Orb32f y[3], line[2];
    int oldest;
    OrbsFIRLMSState_32f* filter;
    if (orbsFIRLMSInitAlloc_32f(&filter, taps, 2, NULL, 0) != orbStsNoErr) return 1;
    orbsFIRLMS_32f(x, reference, y, 3, 0.1f, filter);
    orbsFIRLMSGetDlyLine_32f(filter, line, &oldest);
    printf("%g %g %g, oldest sample %g\n", y[0], y[1], y[2], line[oldest]);
    orbsFIRLMSFree_32f(filter);
    return 0;
}

/*
0.5 1.5 2.5, oldest sample 2
*/
