/* A cyclic convolution with a shifted pulse turns a period. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f x[8] = {1, 2, 3, 4, 5, 6, 7, 8}, pulse[8] = {0, 0, 1};
    Orb32f y[8];
    orbsConvCyclic8x8_32f(x, pulse, y);
    for (int n = 0; n < 8; ++n) printf("%g%c", y[n], n < 7 ? ' ' : '\n');
    return 0;
}

/*
7 8 1 2 3 4 5 6
*/
