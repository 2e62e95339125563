/* The branch table of two points, eight subsets of four dimensions. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32u variance[16] = {10, 20, 30, 40, 0, 0, 0, 0, 1, 2, 3, 4};
    Orb16u table[16];
    orbsBuildSymblTableDV4D_16sc(variance, table, 16, 0);
    for (int i = 0; i < 8; ++i) printf("%d%c", table[2 * i + 1], i < 7 ? ' ' : '\n');
    return 0;
}

/*
11 12 13 14 22 23 24 21
*/
