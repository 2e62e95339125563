/* A vector brought to mean 0 and deviation 1. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    Orb32f x[5] = {1, 2, 3, 4, 5}, mean, deviation;
    orbsMeanStdDev_32f(x, 5, &mean, &deviation, orbAlgHintAccurate);
    orbsNormalize_32f(x, x, 5, mean, deviation);
    for (int n = 0; n < 5; ++n) printf("%.3f%c", x[n], n < 4 ? ' ' : '\n');
    return 0;
}

/*
-1.265 -0.632 0.000 0.632 1.265
*/
