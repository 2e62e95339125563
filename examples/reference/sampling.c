/* Every third sample of a stream in two blocks, and zeros put between samples. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f x[8] = {0, 1, 2, 3, 4, 5, 6, 7};
    Orb32f kept[8], spread[8];
    int first, second, length, phase = 0, start = 0;
    orbsSampleDown_32f(x, 5, kept, &first, 3, &phase);
    orbsSampleDown_32f(x + 5, 3, kept + first, &second, 3, &phase);
    orbsSampleUp_32f(x + 1, 2, spread, &length, 4, &start);
    for (int n = 0; n < first + second; ++n) printf("%g ", kept[n]);
    printf("|");
    for (int n = 0; n < length; ++n) printf(" %g", spread[n]);
    printf("\n");
    return 0;
}

/*
0 3 6 | 1 0 0 0 2 0 0 0
*/
