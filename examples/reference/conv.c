/* The linear convolution of two vectors has one element less than both together. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f x[4] = {1, 2, 3, 4}, h[2] = {1, -1};
    Orb32f y[5];
    orbsConv_32f(x, 4, h, 2, y);
    for (int n = 0; n < 5; ++n) printf("%g%c", y[n], n < 4 ? ' ' : '\n');
    return 0;
}

/*
1 1 1 1 -4
*/
