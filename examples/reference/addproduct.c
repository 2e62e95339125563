/* Products added to what a vector holds. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f a[3] = {1, 2, 3}, b[3] = {10, 10, 10};
    Orb32f sum[3] = {0.5f, 0.5f, 0.5f};
    orbsAddProduct_32f(a, b, sum, 3);
    for (int n = 0; n < 3; ++n) printf("%g%c", sum[n], n < 2 ? ' ' : '\n');
    return 0;
}

/*
10.5 20.5 30.5
*/
