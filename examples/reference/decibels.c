/* Powers in decibels, in steps of 1/16 dB by a scale factor of -4. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32s power[4] = {1, 2, 1000, 1000000};
    Orb32s decibels[4];
    orbs10Log10_32s_Sfs(power, decibels, 4, -4);
    for (int n = 0; n < 4; ++n) printf("%g\n", decibels[n] / 16.0);
    return 0;
}

/*
0
3
30
60
*/
