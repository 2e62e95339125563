/* The rate doubled by linear interpolation, in fixed point without an object. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32s taps[3] = {16384, 32767, 16384};
    const Orb16s x[3] = {100, 200, 400};
    Orb16s line[2] = {0}, y[6];
    orbsFIRMR32s_Direct_16s_Sfs(x, y, 3, taps, 3, -15, 2, 0, 1, 0, line, 0);
    for (int n = 0; n < 6; ++n) printf("%d%c", y[n], n < 5 ? ' ' : '\n');
    return 0;
}

/*
50 100 150 200 300 400
*/
