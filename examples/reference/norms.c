/* The energy of a vector, and the largest difference of two. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f x[3] = {1, 2, 2}, y[3] = {1, 0, 3};
    Orb32f length, apart;
    orbsNorm_L2_32f(x, 3, &length);
    orbsNormDiff_Inf_32f(x, y, 3, &apart);
    printf("%g %g\n", length, apart);
    return 0;
}

/*
3 2
*/
