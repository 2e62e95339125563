/* A triangle wave of 16 bits, its period eight samples. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    Orb16s x[8];
    orbsTriangleQ15_Direct_16s(x, 8, 1000, 4096, 0, 0);
    for (int n = 0; n < 8; ++n) printf("%d%c", x[n], n < 7 ? ' ' : '\n');
    return 0;
}

/*
1000 500 0 -499 -999 -500 0 499
*/
