/* Linear interpolation between samples: the rate doubled without an object. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f taps[3] = {0.5f, 1, 0.5f}, x[3] = {1, 2, 4};
    Orb32f line[2] = {0}, y[6];
    orbsFIRMR_Direct_32f(x, y, 3, taps, 3, 2, 0, 1, 0, line);
    for (int n = 0; n < 6; ++n) printf("%g%c", y[n], n < 5 ? ' ' : '\n');
    return 0;
}

/*
0.5 1 1.5 2 3 4
*/
