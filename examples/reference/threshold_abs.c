/* Magnitudes limited, and signs kept. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f x[5] = {-2, -0.5f, 0, 0.5f, 2};
    Orb32f y[5];
    orbsThreshold_GTAbs_32f(x, y, 5, 1);
    for (int n = 0; n < 5; ++n) printf("%g%c", y[n], n < 4 ? ' ' : '\n');
    return 0;
}

/*
-1 -0.5 0 0.5 1
*/
