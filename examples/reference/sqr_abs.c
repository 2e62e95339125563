/* Squares, and absolute values: of 16 bits the least becomes the greatest. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f x[3] = {-1.5f, 0, 3};
    const Orb16s low[2] = {-32768, -7};
    Orb32f squares[3];
    Orb16s magnitudes[2];
    orbsSqr_32f(x, squares, 3);
    orbsAbs_16s(low, magnitudes, 2);
    printf("%g %g %g\n%d %d\n", squares[0], squares[1], squares[2], magnitudes[0],
           magnitudes[1]);
    return 0;
}

/*
2.25 0 9
32767 7
*/
