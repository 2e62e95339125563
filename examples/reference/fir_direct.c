/* Without an object: taps, a line of twice their number and a position belong to the
 * caller. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f taps[2] = {0.5f, 0.5f}, x[4] = {2, 4, 6, 8};
    Orb32f line[4] = {0}, y[4];
    int position = 0;
    orbsFIR_Direct_32f(x, y, 4, taps, 2, line, &position);
    for (int n = 0; n < 4; ++n) printf("%g%c", y[n], n < 3 ? ' ' : '\n');
    return 0;
}

/*
1 3 5 7
*/
