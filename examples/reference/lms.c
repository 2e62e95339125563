/* A filter that learns an unknown one from its input and output. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    static Orb32f x[2000], wanted[2000], y[2000];
    const Orb32f unknown[3] = {0.5f, -0.25f, 0.125f};
    Orb32f learned[3], line[6] = {0};
    Orb32u seed = 1;
    int position = 0;
    OrbsFIRLMSState_32f* filter;
    if (orbsFIRLMSInitAlloc_32f(&filter, NULL, 3, NULL, 0) != orbStsNoErr) return 1;
    orbsRandUniform_Direct_32f(x, 2000, -1, 1, &seed);
    orbsFIR_Direct_32f(x, wanted, 2000, unknown, 3, line, &position);
    orbsFIRLMS_32f(x, wanted, y, 2000, 0.05f, filter);
    orbsFIRLMSGetTaps_32f(filter, learned);
    printf("%.4f %.4f %.4f\n", learned[0], learned[1], learned[2]);
    orbsFIRLMSFree_32f(filter);
    return 0;
}

/*
0.5000 -0.2500 0.1250
*/
