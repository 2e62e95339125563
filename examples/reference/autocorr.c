/* A period found: the autocorrelation of a wave of period 4 is large again at 4. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f wave[12] = {1, 0, -1, 0, 1, 0, -1, 0, 1, 0, -1, 0};
    Orb32f r[6];
    orbsAutoCorr_32f(wave, 12, r, 6);
    for (int n = 0; n < 6; ++n) printf("%g%c", r[n], n < 5 ? ' ' : '\n');
    return 0;
}

/*
6 0 -5 0 4 0
*/
