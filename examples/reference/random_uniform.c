/* The same seed gives the same noise, on every machine. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    Orb32f x[4];
    Orb32u seed = 7;
    orbsRandUniform_Direct_32f(x, 4, -1, 1, &seed);
    for (int n = 0; n < 4; ++n) printf("%.6f%c", x[n], n < 3 ? ' ' : '\n');
    return 0;
}

/*
-0.548010 -0.739906 -0.126510 -0.643951
*/
