/* Elements limited from below, and from above. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f x[5] = {-2, -0.5f, 0, 0.5f, 2};
    Orb32f floor[5], ceiling[5];
    orbsThreshold_LT_32f(x, floor, 5, -1);
    orbsThreshold_GT_32f(x, ceiling, 5, 1);
    for (int n = 0; n < 5; ++n) printf("%g %g\n", floor[n], ceiling[n]);
    return 0;
}

/*
-1 -2
-0.5 -0.5
0 0
0.5 0.5
2 1
*/
