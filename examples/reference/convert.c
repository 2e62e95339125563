/* 16 bits to floats in -1 to 1, and back with saturation. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    const Orb16s samples[3] = {16384, -32768, 1};
    Orb32f x[3];
    Orb16s back[3];
    orbsConvert_16s32f_Sfs(samples, x, 3, 15);
    orbsMulC_32f_I(1.5f, x, 3);
    orbsConvert_32f16s_Sfs(x, back, 3, orbRndNear, -15);
    for (int n = 0; n < 3; ++n) printf("%g %d\n", x[n], back[n]);
    return 0;
}

/*
0.75 24576
-1.5 -32768
4.57764e-05 2
*/
