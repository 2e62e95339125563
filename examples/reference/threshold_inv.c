/* Limited reciprocals: no result is greater than 1 / 0.5 in magnitude. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32fc z[3] = {{2, 0}, {0, 4}, {0.001f, 0}};
    const Orb32f x[3] = {4, -0.01f, 0};
    Orb32fc inverse[3];
    Orb32f real[3];
    orbsThreshold_LTInv_32fc(z, inverse, 3, 0.5f);
    orbsThreshold_LTInv_32f(x, real, 3, 0.5f);
    for (int n = 0; n < 3; ++n)
        printf("%g%+gi  %g\n", inverse[n].re, inverse[n].im, real[n]);
    return 0;
}

/*
0.5-0i  0.25
0-0.25i  -2
2-0i  2
*/
