/* A vector filled, a part of it cleared. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    Orb32f x[5];
    orbsSet_32f(1.5f, x, 5);
    orbsZero_32f(x + 3, 2);
    for (int n = 0; n < 5; ++n) printf("%g%c", x[n], n < 4 ? ' ' : '\n');
    return 0;
}

/*
1.5 1.5 1.5 0 0
*/
