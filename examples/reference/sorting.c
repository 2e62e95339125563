/* A vector in descending order, and where each element came from. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    Orb32f x[4] = {2, 9, -1, 5}, y[4] = {2, 9, -1, 5};
    Orb32s from[4];
    orbsSortDescend_32f_I(x, 4);
    orbsSortIndexAscend_32f_I(y, from, 4);
    for (int n = 0; n < 4; ++n) printf("%g  %g from %d\n", x[n], y[n], from[n]);
    return 0;
}

/*
9  -1 from 2
5  2 from 0
2  5 from 3
-1  9 from 1
*/
