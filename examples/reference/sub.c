/* The second vector minus the first, and a constant minus a vector. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f a[3] = {1, 2, 3}, b[3] = {10, 20, 30};
    Orb32f difference[3], reversed[3];
    orbsSub_32f(a, b, difference, 3);
    orbsSubCRev_32f(a, 100, reversed, 3);
    for (int n = 0; n < 3; ++n) printf("%g %g\n", difference[n], reversed[n]);
    return 0;
}

/*
9 99
18 98
27 97
*/
