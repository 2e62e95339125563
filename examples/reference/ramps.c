/* A ramp, a slope that stops at the end of 8 bits, and a chirp. */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    Orb32f ramp[5], chirp[5];
    Orb8u slope[5];
    orbsVectorRamp_32f(ramp, 5, -1, 0.5f);
    orbsVectorSlope_8u(slope, 5, 200, 20);
    orbsVectorJaehne_32f(chirp, 5, 1);
    for (int n = 0; n < 5; ++n) printf("%4g %3d %7.4f\n", ramp[n], slope[n], chirp[n]);
    return 0;
}

/*
  -1 200  0.0000
-0.5 220  0.3090
   0 240  0.9511
 0.5 255  0.3090
   1 255 -0.9511
*/
