/* The first vector is the divisor; a division by zero is a warning, and all results are
 * written. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f divisors[3] = {2, 0, -4}, dividends[3] = {1, 1, 1};
    Orb32f quotients[3];
    OrbStatus status = orbsDiv_32f(divisors, dividends, quotients, 3);
    for (int n = 0; n < 3; ++n) printf("%g%c", quotients[n], n < 2 ? ' ' : '\n');
    printf("%s\n", orbGetStatusString(status));
    return 0;
}

/*
0.5 inf -0.25
warning: a divisor element was zero
*/
