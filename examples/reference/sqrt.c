/* Square roots; a negative element gives a warning, not an error. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb16s x[4] = {0, 2, 100, -9};
    Orb16s roots[4];
    OrbStatus status = orbsSqrt_16s_Sfs(x, roots, 4, -4);
    for (int n = 0; n < 4; ++n) printf("%d%c", roots[n], n < 3 ? ' ' : '\n');
    printf("sixteenths: %s\n", orbGetStatusString(status));
    return 0;
}

/*
0 23 160 0
sixteenths: warning: an element under a root was negative
*/
