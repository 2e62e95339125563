/* A tone of a quarter of the sampling rate in fixed point, as a stream. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    Orb16s x[4];
    OrbsToneState_16s* tone;
    if (orbsToneInitAllocQ15_16s(&tone, 1000, 8192, 0) != orbStsNoErr) return 1;
    for (int block = 0; block < 2; ++block) {
        orbsToneQ15_16s(x, 4, tone);
        for (int n = 0; n < 4; ++n) printf("%d%c", x[n], n < 3 ? ' ' : '\n');
    }
    orbsToneFree(tone);
    return 0;
}

/*
1000 0 -1000 0
1000 0 -1000 0
*/
