/* A block shifted within itself: Move allows the overlap. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    Orb16s x[6] = {1, 2, 3, 4, 5, 6}, saved[6];
    orbsCopy_16s(x, saved, 6);
    orbsMove_16s(x, x + 2, 4);
    for (int n = 0; n < 6; ++n) printf("%d %d\n", saved[n], x[n]);
    return 0;
}

/*
1 1
2 2
3 1
4 2
5 3
6 4
*/
