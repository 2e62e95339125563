/* Complex samples taken apart, conjugated and put together. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32fc z[2] = {{1, 2}, {3, -4}};
    Orb32fc conjugate[2], again[2];
    Orb32f re[2], im[2];
    orbsConj_32fc(z, conjugate, 2);
    orbsCplxToReal_32fc(conjugate, re, im, 2);
    orbsRealToCplx_32f(re, im, again, 2);
    for (int n = 0; n < 2; ++n)
        printf("%g %g, %g%+gi\n", re[n], im[n], again[n].re, again[n].im);
    return 0;
}

/*
1 -2, 1-2i
3 4, 3+4i
*/
