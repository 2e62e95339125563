/* A low pass of 7 taps at a quarter of the sampling rate, with a gain of 1 at frequency 0.
 */
#include <orbs.h>
#include <stdio.h>

int main(void) {
    Orb64f taps[7];
    OrbStatus status = orbsFIRGenLowpass_64f(0.25, taps, 7, orbWinHamming, 1);
    for (int n = 0; n < 7; ++n) printf("%.4f%c", taps[n], n < 6 ? ' ' : '\n');
    printf("%s\n", orbGetStatusString(status));
    return 0;
}

/*
-0.0087 0.0000 0.2518 0.5138 0.2518 0.0000 -0.0087
no error
*/
