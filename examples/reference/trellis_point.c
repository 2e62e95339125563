/* A received point and the lattice point below it: the distance to each of four subsets. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb16sc point = {100, -60};
    const Orb8u labels[16] = {0, 1, 2, 3, 2, 3, 0, 1, 0, 1, 2, 3, 2, 3, 0, 1};
    Orb16sc lattice;
    Orb32u variance[8];
    orbsGetVarPointDV_16sc(&point, &lattice, variance, labels, 16);
    printf("below it: %d %d\n", lattice.re, lattice.im);
    for (int label = 0; label < 4; ++label)
        printf("%d: %u by code %u\n", label, variance[label] & 0xffff,
               variance[label] >> 16);
    return 0;
}

/*
below it: -128 -128
0: 338 by code 1
1: 5458 by code 3
2: 2258 by code 2
3: 3538 by code 0
*/
