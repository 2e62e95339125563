/* A running median of three takes out a click and leaves a step. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f x[8] = {1, 1, 9, 1, 1, 5, 5, 5};
    Orb32f y[8];
    orbsFilterMedian_32f(x, y, 8, 3);
    for (int n = 0; n < 8; ++n) printf("%g%c", y[n], n < 7 ? ' ' : '\n');
    return 0;
}

/*
1 1 1 1 1 5 5 5
*/
