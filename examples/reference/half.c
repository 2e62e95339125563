/* Floats as half floats: eleven bits of precision in two bytes. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb32f x[3] = {1, 0.1f, 70000};
    Orb16f halves[3];
    Orb32f back[3];
    orbsConvert_32f16f(x, halves, 3, orbRndNear);
    orbsConvert_16f32f(halves, back, 3);
    for (int n = 0; n < 3; ++n) printf("%04x %.6f\n", (unsigned short)halves[n], back[n]);
    return 0;
}

/*
3c00 1.000000
2e66 0.099976
7c00 inf
*/
