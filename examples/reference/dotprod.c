/* A dot product; of 16 bits it is exact in 64. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f x[3] = {1, 2, 3}, y[3] = {4, 5, 6};
    const Orb16s a[3] = {32767, 32767, -1}, b[3] = {32767, 32767, 1};
    Orb32f product;
    Orb64s exact;
    orbsDotProd_32f(x, y, 3, &product);
    orbsDotProd_16s64s(a, b, 3, &exact);
    printf("%g %lld\n", product, exact);
    return 0;
}

/*
32 2147352577
*/
