/* From the packed half of a real signal's spectrum to all of its bins. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f perm[4] = {10, 2, -2, 1};
    Orb32fc bins[4];
    orbsConjPerm_32fc(perm, bins, 4);
    for (int k = 0; k < 4; ++k)
        printf("%g%+gi%c", bins[k].re, bins[k].im, k < 3 ? ' ' : '\n');
    return 0;
}

/*
10+0i -2+1i 2+0i -2-1i
*/
