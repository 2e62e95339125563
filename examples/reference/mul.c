/* A gain on samples, complex products, and products of 16 bits scaled back. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    Orb32f samples[3] = {0.5f, -0.25f, 1};
    const Orb32fc i = {0, 1}, z = {3, 4};
    const Orb16s a[2] = {20000, -300}, b[2] = {20000, 300};
    Orb32fc product;
    Orb16s scaled[2];
    orbsMulC_32f_I(2, samples, 3);
    orbsMul_32fc(&i, &z, &product, 1);
    orbsMul_16s_Sfs(a, b, scaled, 2, 15);
    printf("%g %g %g\n%g%+gi\n%d %d\n", samples[0], samples[1], samples[2], product.re,
           product.im, scaled[0], scaled[1]);
    return 0;
}

/*
1 -0.5 2
-4+3i
12207 -3
*/
