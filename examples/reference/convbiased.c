/* Four outputs of a convolution, the second vector entered at its element 1. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f h[2] = {1, 1}, window[4] = {1, 2, 3, 4};
    Orb32f y[4];
    orbsConvBiased_32f(h, 2, window + 1, 4, y, 4, 1);
    for (int n = 0; n < 4; ++n) printf("%g%c", y[n], n < 3 ? ' ' : '\n');
    return 0;
}

/*
3 5 7 4
*/
