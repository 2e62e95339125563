/* An echo at lag 3, and one that goes on for ever. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f x[8] = {1}, echo[2] = {1, 0.5f};
    const Orb32s echoAt[2] = {0, 3};
    Orb32f y[8], z[8];
    OrbsFIRSparseState_32f* once;
    OrbsIIRSparseState_32f* forever;
    Orb8u firMemory[1024], iirMemory[1024];
    if (orbsFIRSparseInit_32f(&once, echo, echoAt, 2, NULL, firMemory) != orbStsNoErr)
        return 1;
    if (orbsIIRSparseInit_32f(&forever, echo, echoAt, 1, 1, NULL, iirMemory) != orbStsNoErr)
        return 1;
    orbsFIRSparse_32f(x, y, 8, once);
    orbsIIRSparse_32f(x, z, 8, forever);
    for (int n = 0; n < 8; ++n) printf("%g %g\n", y[n], z[n]);
    return 0;
}

/*
1 1
0 0
0 0
0.5 0.5
0 0
0 0
0 0.25
0 0
*/
