/* The greater of each pair: an envelope held from block to block. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f block[4] = {1, 5, 2, 0};
    Orb32f held[4] = {3, 3, 3, -1};
    orbsMaxEvery_32f_I(block, held, 4);
    for (int n = 0; n < 4; ++n) printf("%g%c", held[n], n < 3 ? ' ' : '\n');
    return 0;
}

/*
3 5 3 0
*/
