/* Two periods of a triangle wave. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    Orb32f x[8], phase = 0;
    orbsTriangle_Direct_32f(x, 8, 1, 0.25f, 0, &phase);
    for (int n = 0; n < 8; ++n) printf("%g%c", x[n], n < 7 ? ' ' : '\n');
    return 0;
}

/*
1 0 -1 0 1 0 -1 0
*/
