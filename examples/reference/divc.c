/* A vector divided by a number, and a number divided by each element. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f x[3] = {1, 2, 4};
    Orb32f thirds[3], inverse[3];
    orbsDivC_32f(x, 3, thirds, 3);
    orbsDivCRev_32f(x, 8, inverse, 3);
    for (int n = 0; n < 3; ++n) printf("%.4f %g\n", thirds[n], inverse[n]);
    return 0;
}

/*
0.3333 8
0.6667 4
1.3333 2
*/
