/* A tone in two calls: the phase goes on where the first one ended. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    Orb32f x[8], phase = 0;
    orbsTone_Direct_32f(x, 3, 1, 0.125f, &phase, orbAlgHintAccurate);
    orbsTone_Direct_32f(x + 3, 5, 1, 0.125f, &phase, orbAlgHintAccurate);
    for (int n = 0; n < 8; ++n) printf("%.3f%c", x[n], n < 7 ? ' ' : '\n');
    return 0;
}

/*
1.000 0.707 0.000 -0.707 -1.000 -0.707 0.000 0.707
*/
