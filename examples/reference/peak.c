/* The peak of 16-bit samples, and how many bits it takes: what is left is headroom. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb16s x[4] = {300, -1200, 44, 9};
    Orb16s peak;
    Orb32s bits;
    orbsMaxAbs_16s(x, 4, &peak);
    orbsMaxOrder_16s(x, 4, &bits);
    printf("peak %d, %d bits, %d to spare\n", peak, bits, 15 - bits);
    return 0;
}

/*
peak 1200, 11 bits, 4 to spare
*/
