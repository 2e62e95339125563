/* One step of the Haar transform, averages and half differences, and back. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f x[6] = {1, 3, 5, 5, 8, 2};
    Orb32f low[3], high[3], back[6];
    orbsWTHaarFwd_32f(x, 6, low, high);
    orbsWTHaarInv_32f(low, high, back, 6);
    for (int n = 0; n < 3; ++n)
        printf("%g %g: %g %g\n", low[n], high[n], back[2 * n], back[2 * n + 1]);
    return 0;
}

/*
2 1: 1 3
5 0: 5 5
5 -3: 8 2
*/
