/* A vector turned round. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    Orb32f x[4] = {1, 2, 3, 4};
    orbsFlip_32f_I(x, 4);
    for (int n = 0; n < 4; ++n) printf("%g%c", x[n], n < 3 ? ' ' : '\n');
    return 0;
}

/*
4 3 2 1
*/
