/* The same without an object: taps of 14 fraction bits, the exponent in the place of a[0].
 */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb16s taps[4] = {8192, 0, 14, -8192}, x[4] = {1000, 1000, 1000, 1000};
    Orb16s y[4];
    Orb32s line[1] = {0};
    orbsIIR_Direct_16s(x, y, 4, taps, 1, line);
    for (int n = 0; n < 4; ++n) printf("%d%c", y[n], n < 3 ? ' ' : '\n');
    return 0;
}

/*
500 750 875 938
*/
